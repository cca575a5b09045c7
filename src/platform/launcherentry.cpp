#include "platform/launcherentry.h"

#include <QDBusConnection>
#include <QDBusMessage>
#include <QVariantMap>

LauncherEntry::LauncherEntry(const QString& desktopId)
    : m_appUri(QStringLiteral("application://") + desktopId)
{}

void LauncherEntry::showProgress(int step, int count)
{
    QDBusMessage signal = QDBusMessage::createSignal(QStringLiteral("/com/halvorndesign/Nimbo/LauncherEntry"),
                                                     QStringLiteral("com.canonical.Unity.LauncherEntry"),
                                                     QStringLiteral("Update"));
    QVariantMap properties{{QStringLiteral("progress-visible"), count > 0}};
    if (count > 0)
        properties.insert(QStringLiteral("progress"), qBound(0.0, double(step) / count, 1.0));
    signal << m_appUri << properties;
    QDBusConnection::sessionBus().send(signal); // no session bus: nobody to show it to
}
