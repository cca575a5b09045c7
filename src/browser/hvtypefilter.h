// The type-to-filter text: what the user typed in the icon view, always in lower case. One
// character keeps the apps that have that letter among their filter letters (initials and
// digits); more characters keep the apps whose name contains the text, ignoring case, and, while
// keyword matching is on, those whose other search words (keywords, generic name, program) do.
#pragma once

#include <QString>

class HVApp;

class HVTypeFilter
{
public:
    // Typing stops adding characters here.
    static constexpr int MaxLength = 256;

    const QString& text() const { return m_text; }
    bool isEmpty() const { return m_text.isEmpty(); }

    // Each answers whether the text changed.
    bool clear();
    bool setText(const QString& text);
    bool removeLastCharacter();
    // A letter or digit is added in lower case; anything else is refused (false).
    bool appendLetterOrDigit(QChar character);
    // A space follows a word only: never first, never two in a row.
    bool appendSpace();

    bool filtersOut(const HVApp& app) const;

    bool matchesKeywords() const { return m_matchesKeywords; }
    void setMatchesKeywords(bool matches) { m_matchesKeywords = matches; }

private:
    QString m_text;
    bool m_matchesKeywords = true;
};
