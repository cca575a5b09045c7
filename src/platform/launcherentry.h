// The taskbar entry's progress bar: docks and KDE's task manager listen on the session bus for
// com.canonical.Unity.LauncherEntry "Update" signals naming the application's desktop entry.
#pragma once

#include <QString>

class LauncherEntry
{
public:
    explicit LauncherEntry(const QString& desktopId = QStringLiteral("com.halvorndesign.Nimbo.desktop"));

    // step/count of a scan; a count of 0 hides the bar.
    void showProgress(int step, int count);

private:
    QString m_appUri;
};
