#include "hvtypefilter.h"

#include "catalogue/hvapp.h"

bool HVTypeFilter::clear()
{
    return setText(QString());
}

bool HVTypeFilter::setText(const QString& text)
{
    const QString lower = text.left(MaxLength).toLower();
    if (lower == m_text)
        return false;
    m_text = lower;
    return true;
}

bool HVTypeFilter::removeLastCharacter()
{
    if (m_text.isEmpty())
        return false;
    m_text.chop(1);
    return true;
}

bool HVTypeFilter::appendLetterOrDigit(QChar character)
{
    if (!character.isLetterOrNumber() || m_text.size() >= MaxLength)
        return false;
    m_text.append(character.toLower());
    return true;
}

bool HVTypeFilter::appendSpace()
{
    if (m_text.isEmpty() || m_text.endsWith(QLatin1Char(' ')) || m_text.size() >= MaxLength)
        return false;
    m_text.append(QLatin1Char(' '));
    return true;
}

bool HVTypeFilter::filtersOut(const HVApp& app) const
{
    if (m_text.isEmpty())
        return false;
    if (m_text.size() == 1)
        return !app.containsLetter(m_text.at(0).toLatin1());
    if (app.name().contains(m_text, Qt::CaseInsensitive))
        return false;
    return !m_matchesKeywords || !app.searchText().contains(m_text);
}
