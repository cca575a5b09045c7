#include "hvletterstepping.h"

namespace HVLetterStepping {
QString steppedFilter(const QString& filter, int step)
{
    if (filter.isEmpty())
        return step > 0 ? QStringLiteral("z") : step < 0 ? QStringLiteral("a") : QString();
    if (filter.size() != 1)
        return QString();
    const int letter = filter.at(0).unicode() - step;
    if (letter < 'a' || letter > 'z')
        return QString();
    return QString(QChar(letter));
}
} // namespace HVLetterStepping
