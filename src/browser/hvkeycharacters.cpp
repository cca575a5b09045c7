#include "hvkeycharacters.h"

#include <QKeyEvent>

namespace HVKeyCharacters {
QString charactersIgnoringModifiers(const QKeyEvent& event)
{
    const int key = event.key();
    switch (key) {
    case Qt::Key_Return:
        return QString(QChar(Return));
    case Qt::Key_Enter:
        return QString(QChar(Enter));
    case Qt::Key_Backspace:
        return QString(QChar(Delete));
    case Qt::Key_Escape:
        return QString(QChar(Escape));
    case Qt::Key_Space:
        return QStringLiteral(" ");
    default:
        break;
    }
    // With Ctrl held the text is a control character: the key names the character instead.
    if (key >= Qt::Key_A && key <= Qt::Key_Z)
        return event.text().size() == 1 && event.text().at(0).isLetter()
                   ? event.text()
                   : QString(QChar(key - Qt::Key_A + 'a'));
    if ((key >= Qt::Key_Space && key <= Qt::Key_AsciiTilde) && !event.text().isEmpty() &&
        event.text().at(0).isPrint())
        return event.text();
    if (key > Qt::Key_Space && key <= Qt::Key_AsciiTilde)
        return QString(QChar(key));
    const QString text = event.text();
    if (text.isEmpty() || !text.at(0).isPrint())
        return QString();
    return text;
}
} // namespace HVKeyCharacters
