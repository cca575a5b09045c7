#include "hvfilteredcells.h"

#include "hvtypefilter.h"

HVFilteredCells::Change HVFilteredCells::refresh(const std::vector<const HVApp*>& apps,
                                                 const HVTypeFilter& filter)
{
    Change change;
    const QString& text = filter.text();
    if (!m_valid || m_out.size() != apps.size()) {
        m_out.assign(apps.size(), 0);
        for (std::size_t i = 0; i < apps.size(); ++i)
            m_out[i] = apps[i] && filter.filtersOut(*apps[i]);
        m_text = text;
        m_valid = true;
        change.everyCell = true;
        return change;
    }
    if (text == m_text)
        return change;
    // Two or more characters match within names: a name holding the longer text holds the
    // shorter one too.
    const bool narrowing = m_text.size() >= 2 && text.startsWith(m_text);
    const bool widening = text.size() >= 2 && m_text.startsWith(text);
    for (std::size_t i = 0; i < apps.size(); ++i) {
        const bool was = m_out[i];
        if (!apps[i] || (narrowing && was) || (widening && !was))
            continue;
        const bool out = filter.filtersOut(*apps[i]);
        if (out != was) {
            m_out[i] = out;
            change.cells.append(int(i));
        }
    }
    m_text = text;
    return change;
}
