// One cell of the icon grid's lookup table: whether an app sits in it, which bunch the cell
// belongs to, the app's position within that bunch (or within a flat list), and the cell's
// rectangle in the view's top-left coordinates. An empty cell keeps its index and rectangle.
#pragma once

#include <QRectF>
#include <QtGlobal>

struct appInfo
{
    bool filled = false;
    quint64 bunch = 0;
    quint64 index = 0;
    QRectF rect;
};
