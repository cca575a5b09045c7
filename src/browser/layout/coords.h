// Where a point of the icon view falls: a cell (row and column), the bunch under it, the gap
// between bunches, or the outer margin. Each field holds an index or None.
#pragma once

#include <QtGlobal>

#include <limits>

struct Coords
{
    static constexpr quint64 None = quint64(std::numeric_limits<qint64>::max());

    quint64 row = None;
    quint64 col = None;
    quint64 bunch = None;
    quint64 spacer = None;
    quint64 margin = None;

    static bool isNone(quint64 field) { return field == None; }
    bool hasCell() const { return row != None && col != None; }
    bool isEmpty() const { return !hasCell() && bunch == None && spacer == None && margin == None; }
    friend bool operator==(const Coords&, const Coords&) = default;
};
