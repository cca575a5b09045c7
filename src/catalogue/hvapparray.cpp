#include "hvapparray.h"

int HVAppArray::bunchCount() const
{
    if (m_bunches)
        return int(m_bunches->size());
    return m_flat ? 1 : 0;
}

HVAppBunch HVAppArray::bunch(int index) const
{
    if (m_bunches)
        return m_bunches->value(index);
    return m_flat && index == 0 ? *m_flat : HVAppBunch();
}

int HVAppArray::count() const
{
    if (m_flat)
        return int(m_flat->size());
    int total = 0;
    if (m_bunches) {
        for (const HVAppBunch& bunch : *m_bunches)
            total += int(bunch.size());
    }
    return total;
}

HVAppBunch HVAppArray::allApps() const
{
    if (m_flat)
        return *m_flat;
    HVAppBunch all;
    if (m_bunches) {
        for (const HVAppBunch& bunch : *m_bunches)
            all += bunch;
    }
    return all;
}

bool HVAppArray::contains(const HVAppRef& app) const
{
    if (m_flat)
        return m_flat->contains(app);
    if (m_bunches) {
        for (const HVAppBunch& bunch : *m_bunches) {
            if (bunch.contains(app))
                return true;
        }
    }
    return false;
}
