// Draws an icon file into a square bitmap: premultiplied 8-bit RGBA (bytes R, G, B, A), the
// icon fitted inside keeping its shape and centred. SVG is rendered at the size itself; a
// bitmap is scaled smoothly. Hostile files are refused before they cost much: not a regular
// file, more than 8 MB, a bitmap of more than 2048 x 2048 pixels, or one that does not decode.
#pragma once

#include <QImage>
#include <QString>

namespace IconFileRenderer {

constexpr qint64 MaxFileBytes = 8 * 1024 * 1024;
constexpr qint64 MaxBitmapPixels = 2048 * 2048;

// Null, with `error` set, when the file cannot be drawn.
QImage render(const QString& path, int size, QString* error);

} // namespace IconFileRenderer
