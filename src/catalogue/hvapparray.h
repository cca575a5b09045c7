// The shapes of the catalogue's lists: a flat list of records, or a grouped list of bunches.
#pragma once

#include "hvapp.h"

#include <QList>

using HVAppBunch = QList<HVAppRef>;
using HVAppBunches = QList<HVAppBunch>;

// A read-only handle on one of the catalogue's live lists, flat or grouped. Two handles are
// the same list exactly when they point at the same storage.
class HVAppArray
{
public:
    HVAppArray() = default;
    explicit HVAppArray(const HVAppBunch* flat) : m_flat(flat) {}
    explicit HVAppArray(const HVAppBunches* bunches) : m_bunches(bunches) {}

    bool isNull() const { return !m_flat && !m_bunches; }
    // Grouped exactly when it holds at least one bunch; an empty list counts as flat.
    bool is2D() const { return m_bunches && !m_bunches->isEmpty(); }
    bool isEmpty() const { return m_flat ? m_flat->isEmpty() : (!m_bunches || m_bunches->isEmpty()); }

    const HVAppBunch* flat() const { return m_flat; }
    const HVAppBunches* bunches() const { return m_bunches; }

    // A flat list reads as one bunch here.
    int bunchCount() const;
    HVAppBunch bunch(int index) const;
    int count() const; // records in all bunches
    HVAppBunch allApps() const;
    bool contains(const HVAppRef& app) const;

    bool operator==(const HVAppArray& other) const
    {
        return m_flat == other.m_flat && m_bunches == other.m_bunches;
    }

private:
    const HVAppBunch* m_flat = nullptr;
    const HVAppBunches* m_bunches = nullptr;
};
