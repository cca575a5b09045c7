#include "imageextras.h"

#include <QImageReader>
#include <QPainter>
#include <QtDebug>

namespace HVImageExtras {

HVBitmapRep bitmapImageRep(const QImage& image)
{
    if (image.isNull() || image.width() <= 0 || image.height() <= 0) {
        qWarning("Invalid image size for creating new bitmap in %s", "HVImageExtras::bitmapImageRep");
        return HVBitmapRep();
    }
    HVBitmapRep rep = HVBitmapRep::fromImage(image);
    const qint64 model = rep.layout().colorSpaceModel;
    if (model == HVColorSpaceModelGray || model == HVColorSpaceModelRGB)
        return rep;
    return HVBitmapRep::fromImage(bitmapImageRepOfSize(image, image.size()));
}

QImage bitmapImageRepOfSize(const QImage& image, QSize size)
{
    QImage bitmap;
    if (size.width() > 0 && size.height() > 0)
        bitmap = QImage(size, QImage::Format_RGBA8888_Premultiplied);
    if (bitmap.isNull()) {
        qWarning("Needed to resample the bitmap image, but couldn't create a new bitmap image in %s",
                 "HVImageExtras::bitmapImageRepOfSize");
        return QImage();
    }
    bitmap.fill(Qt::transparent);
    if (image.isNull())
        return bitmap;
    QPainter painter;
    if (!painter.begin(&bitmap))
        return QImage();
    painter.setRenderHint(QPainter::SmoothPixmapTransform, true);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.drawImage(QRect(QPoint(0, 0), size), image);
    painter.end();
    return bitmap;
}

QImage readImage(const QString& path, QSize size, QString* error)
{
    QImageReader reader(path);
    const QByteArray format = reader.format();
    if ((format == "svg" || format == "svgz") && size.width() > 0 && size.height() > 0)
        reader.setScaledSize(size);
    QImage image = reader.read();
    if (image.isNull() && error) {
        *error = reader.errorString();
        if (error->isEmpty())
            *error = QStringLiteral("cannot read the image");
    }
    return image;
}

} // namespace HVImageExtras
