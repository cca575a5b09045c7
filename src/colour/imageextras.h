// Images for the colour analysis: the bitmap read from an icon image, the icon drawn into a
// premultiplied 8-bit RGBA bitmap of a given size, and image files read for that.
#pragma once

#include "hvbitmaprep.h"

#include <QImage>
#include <QSize>
#include <QString>

namespace HVImageExtras {

// The bitmap of an image: the image itself when its bytes are grey or R, G, B (and alpha) in
// this order, whatever its size, depth and premultiplication; else the image drawn into a
// premultiplied RGBA bitmap of its own size. A null image gives a null bitmap (logged).
HVBitmapRep bitmapImageRep(const QImage& image);

// The whole image drawn at size.width() x size.height() pixels into a new premultiplied 8-bit
// RGBA bitmap (bytes R, G, B, A), with high-quality interpolation and copy compositing, so
// that partly transparent edge pixels stay darkened by their alpha. Null (logged) when the
// bitmap cannot be made, e.g. for an empty size.
QImage bitmapImageRepOfSize(const QImage& image, QSize size);

// Reads an image file to be drawn at `size`: a scalable image (SVG) is rendered at that size,
// others are read at their own size. Null with `error` set when the file cannot be read; memory
// is bounded by the image reader's allocation limit.
QImage readImage(const QString& path, QSize size, QString* error);

} // namespace HVImageExtras
