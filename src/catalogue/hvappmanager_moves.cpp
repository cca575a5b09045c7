// Moving records within the user's lists: the flat list and the arrangement in bunches keep
// the same records, each in an order of its own.
#include "hvappmanager.h"

namespace {
qint64 clamped(qint64 index, qint64 count)
{
    return std::clamp<qint64>(index, 0, count);
}
} // namespace

void HVAppManager::moveApp(const HVAppRef& app, int group, qint64 bunch, qint64 index)
{
    if (!app || !isUserGroup(group))
        return;
    if (group == HVAppGroupUser1D)
        moveAppInFlatUserList(app, index);
    else
        moveAppInUserBunches(app, bunch, index);
}

void HVAppManager::moveAppInFlatUserList(const HVAppRef& app, qint64 index)
{
    index = std::max<qint64>(index, 0); // before the start is the start
    const qint64 from = m_userApps1D.indexOf(app);
    if (from == index)
        return;
    {
        HVListChange change(this, {HVAppListKeys::UserApps, HVAppListKeys::UserApps1D});
        if (from < 0) {
            m_userApps.append(HVAppBunch{app}); // a new favourite joins the arrangement too
        } else {
            m_userApps1D.removeAt(from);
            if (from < index)
                --index;
        }
        m_userApps1D.insert(clamped(index, m_userApps1D.size()), app);
    }
    writeUserAppsToDisk();
}

void HVAppManager::moveAppInUserBunches(const HVAppRef& app, qint64 bunch, qint64 index)
{
    index = std::max<qint64>(index, 0);
    const qint64 bunchCount = m_userApps.size();
    qint64 from = -1;
    qint64 position = -1;
    for (qint64 b = 0; b < bunchCount && from < 0; ++b) {
        position = m_userApps[b].indexOf(app);
        if (position >= 0)
            from = b;
    }
    if (from >= 0 && from == bunch && position == index)
        return;
    {
        HVListChange change(this, {HVAppListKeys::UserApps, HVAppListKeys::UserApps1D});
        if (from >= 0) {
            m_userApps[from].removeAt(position);
            if (m_userApps[from].isEmpty() && from != bunch) {
                m_userApps.removeAt(from);
                if (from < bunch)
                    --bunch;
            }
            // Within one bunch, taking the record out shifts the later positions down.
            if (bunch == from && position < index)
                --index;
        } else {
            m_userApps1D.append(app); // the flat list gets new records at its end
        }
        // The bunch count from before the move decides, as the caller saw the bunches.
        if (bunch >= 0 && bunch < bunchCount && bunch < m_userApps.size())
            m_userApps[bunch].insert(clamped(index, m_userApps[bunch].size()), app);
        else
            m_userApps.append(HVAppBunch{app});
    }
    writeUserAppsToDisk();
}

void HVAppManager::moveAppToNewBunch(const HVAppRef& app, int group, qint64 bunchIndex)
{
    if (!app || group != HVAppGroupUser)
        return;
    {
        HVListChange change(this, {HVAppListKeys::UserApps, HVAppListKeys::UserApps1D});
        qint64 target = std::min<qint64>(m_userApps.size(), std::max<qint64>(bunchIndex, 0));
        qint64 from = -1;
        for (qint64 b = 0; b < m_userApps.size() && from < 0; ++b) {
            if (m_userApps[b].contains(app))
                from = b;
        }
        if (from >= 0) {
            m_userApps[from].removeOne(app);
            if (m_userApps[from].isEmpty()) {
                m_userApps.removeAt(from);
                if (target > from)
                    --target;
            }
        } else {
            m_userApps1D.append(app);
        }
        m_userApps.insert(target, HVAppBunch{app});
    }
    writeUserAppsToDisk();
}
