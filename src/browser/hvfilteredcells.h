// Which cells of the grid the type-to-filter fades, worked out once per change of the filter
// instead of once per painted cell. A change of the filter reports just the cells whose fading
// changed, so that only those are painted again; a longer word only re-checks the cells it still
// keeps, a shorter one only those it faded.
#pragma once

#include <QList>
#include <QString>

#include <vector>

class HVApp;
class HVTypeFilter;

class HVFilteredCells
{
public:
    struct Change
    {
        bool everyCell = false; // the cells were worked out afresh: any of them may have changed
        QList<int> cells;       // otherwise the cells whose fading changed
    };

    // The grid changed: the next refresh works every cell out afresh.
    void invalidate() { m_valid = false; }
    // Brings the cells up to `filter`. `apps` holds the app of every cell (row by row; null for
    // an empty cell) and must be the same grid as at the last refresh unless invalidated since.
    Change refresh(const std::vector<const HVApp*>& apps, const HVTypeFilter& filter);
    // Whether the cells are up to date for that filter text.
    bool isCurrentFor(const QString& filterText) const { return m_valid && m_text == filterText; }
    bool isFilteredOut(std::size_t cell) const { return cell < m_out.size() && m_out[cell]; }

private:
    bool m_valid = false;
    QString m_text;
    std::vector<char> m_out;
};
