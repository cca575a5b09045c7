#include "iconfilerenderer.h"

#include <QFileInfo>
#include <QImageReader>
#include <QMutex>
#include <QPainter>

#include <optional>

namespace IconFileRenderer {

namespace {
// Bitmaps above this many pixels decode one at a time, so eight loads of large icons at once
// stay within a bounded amount of memory.
constexpr qint64 LargeBitmapPixels = 512 * 512;
// Per decode, in megabytes: a 2048 x 2048 bitmap at 4 bytes a pixel, with room to spare.
constexpr int DecodeAllocationLimitMB = 24;

QMutex& largeDecodeMutex()
{
    static QMutex mutex;
    return mutex;
}

bool isScalableFormat(const QByteArray& format)
{
    return format == "svg" || format == "svgz";
}

QImage decodeScalable(QImageReader& reader, int size, QString* error)
{
    // The declared size only gives the shape; absurd or missing sizes render as a square.
    QSize fitted(size, size);
    const QSize declared = reader.size();
    if (declared.width() > 0 && declared.height() > 0)
        fitted = declared.scaled(size, size, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    reader.setScaledSize(fitted);
    QImage image = reader.read();
    if (image.isNull())
        *error = reader.errorString();
    return image;
}

QImage decodeBitmap(QImageReader& reader, int size, QString* error)
{
    const QSize declared = reader.size();
    if (declared.width() <= 0 || declared.height() <= 0) {
        *error = QStringLiteral("no image size: %1").arg(reader.errorString());
        return QImage();
    }
    const qint64 pixels = qint64(declared.width()) * declared.height();
    if (pixels > MaxBitmapPixels) {
        *error = QStringLiteral("%1 x %2 pixels is too large for an icon")
                     .arg(declared.width())
                     .arg(declared.height());
        return QImage();
    }
    std::optional<QMutexLocker<QMutex>> large;
    if (pixels > LargeBitmapPixels)
        large.emplace(&largeDecodeMutex());
    QImage image;
    if (!reader.read(&image) || image.isNull()) {
        *error = reader.errorString();
        return QImage();
    }
    if (image.width() > size || image.height() > size)
        image = image.scaled(size, size, Qt::KeepAspectRatio, Qt::SmoothTransformation);
    return image;
}
} // namespace

QImage render(const QString& path, int size, QString* error)
{
    if (size <= 0) {
        *error = QStringLiteral("no size");
        return QImage();
    }
    const QFileInfo info(path);
    if (!info.isFile()) {
        *error = QStringLiteral("%1 is not a file").arg(path);
        return QImage();
    }
    if (info.size() > MaxFileBytes || info.size() == 0) {
        *error = QStringLiteral("%1 has %2 bytes").arg(path).arg(info.size());
        return QImage();
    }
    QImageReader reader(path);
    reader.setAllocationLimit(DecodeAllocationLimitMB);
    if (!reader.canRead()) {
        *error = QStringLiteral("%1: %2").arg(path, reader.errorString());
        return QImage();
    }
    QString why;
    const QImage image = isScalableFormat(reader.format()) ? decodeScalable(reader, size, &why)
                                                           : decodeBitmap(reader, size, &why);
    if (image.isNull()) {
        *error = QStringLiteral("%1: %2").arg(path, why);
        return QImage();
    }
    QImage square(size, size, QImage::Format_RGBA8888_Premultiplied);
    if (square.isNull()) {
        *error = QStringLiteral("no memory for a %1-pixel icon").arg(size);
        return QImage();
    }
    square.fill(Qt::transparent);
    QPainter painter(&square);
    painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
    const QSize shown = image.size().scaled(size, size, Qt::KeepAspectRatio).expandedTo(QSize(1, 1));
    painter.drawImage(QRect(QPoint((size - shown.width()) / 2, (size - shown.height()) / 2), shown), image);
    painter.end();
    return square;
}

} // namespace IconFileRenderer
