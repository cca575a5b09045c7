// Icon themes, icon files and desktop entries written into a test's private folders.
#pragma once

#include "support/testenvironment.h"

#include "platform/iconthemelookup.h"

#include <QBuffer>
#include <QImage>
#include <QPainter>
#include <QtEndian>

namespace IconTestFiles {

inline const QString SystemIcons = QStringLiteral("/usr/share/icons");

// A square PNG of one colour.
inline QByteArray png(int size, QColor colour = Qt::red)
{
    QImage image(size, size, QImage::Format_ARGB32);
    image.fill(colour);
    QByteArray bytes;
    QBuffer buffer(&bytes);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    return bytes;
}

// An SVG declaring `width` x `height` whose one shape, a disc, fills the view box.
inline QByteArray svg(const QByteArray& width = "16", const QByteArray& height = "16",
                      const char* fill = "#00ff00")
{
    return "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"" + width + "\" height=\"" + height +
           "\" viewBox=\"0 0 16 16\"><circle cx=\"8\" cy=\"8\" r=\"8\" fill=\"" + fill + "\"/></svg>";
}

// The first bytes of a PNG that claims `width` x `height` pixels (signature and a correct IHDR).
inline QByteArray pngHeader(quint32 width, quint32 height)
{
    QByteArray ihdr = "IHDR" + QByteArray(13, '\0');
    qToBigEndian(width, ihdr.data() + 4);
    qToBigEndian(height, ihdr.data() + 8);
    ihdr[12] = 8, ihdr[13] = 6; // 8 bits per sample, RGBA
    quint32 crc = 0xffffffffu;
    for (const char byte : ihdr) {
        crc ^= quint8(byte);
        for (int k = 0; k < 8; ++k)
            crc = (crc >> 1) ^ (0xedb88320u & (0u - (crc & 1u)));
    }
    QByteArray bytes = QByteArray("\x89PNG\r\n\x1a\n\0\0\0\x0d", 12) + ihdr + QByteArray(4, '\0');
    qToBigEndian(~crc, bytes.data() + 29);
    return bytes;
}

// An index.theme with the given folders, each "path:Type:Size[:Min:Max]".
inline QByteArray indexTheme(const QString& name, const QString& inherits, const QStringList& folders)
{
    QStringList paths;
    QString groups;
    for (const QString& folder : folders) {
        const QStringList parts = folder.split(QLatin1Char(':'));
        paths.append(parts[0]);
        groups += QStringLiteral("\n[%1]\nType=%2\nSize=%3\n").arg(parts[0], parts[1], parts[2]);
        if (parts.size() == 5)
            groups += QStringLiteral("MinSize=%1\nMaxSize=%2\n").arg(parts[3], parts[4]);
    }
    const QString parents = inherits.isEmpty() ? QString() : "Inherits=" + inherits + "\n";
    return ("[Icon Theme]\nName=" + name + "\n" + parents + "Directories=" + paths.join(',') + "\n" + groups)
        .toUtf8();
}

// A desktop entry naming `icon` (no Icon key when it is null).
inline QByteArray desktopEntry(const QString& icon)
{
    QByteArray text = "[Desktop Entry]\nType=Application\nName=Test\nExec=true\n";
    if (!icon.isNull())
        text += "Icon=" + icon.toUtf8() + "\n";
    return text;
}

// Theme settings over the test's private icon folder, then the system's.
inline IconThemeLookup::Settings themes(const TestEnvironment& env, const QString& theme)
{
    IconThemeLookup::Settings settings;
    settings.themeName = theme;
    settings.baseFolders = {env.root() + QStringLiteral("/icons"), SystemIcons};
    settings.pixmapFolders = {env.root() + QStringLiteral("/pixmaps")};
    return settings;
}

} // namespace IconTestFiles
