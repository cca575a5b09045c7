// Starting Nimbo when the user logs in, through the XDG autostart folder: the file
// $XDG_CONFIG_HOME/autostart/com.halvorndesign.Nimbo.desktop whose Exec names this program by
// absolute path. It counts only when it is present, not marked Hidden=true, and names this program,
// so a file left by another copy of Nimbo elsewhere is not taken for ours.
#pragma once

#include <QString>

class LaunchAtLogin
{
public:
    // `program` defaults to the running executable's absolute path.
    explicit LaunchAtLogin(const QString& program = QString());

    static QString autostartPath();
    QString program() const { return m_program; }

    bool launchAtLogin() const;
    // Writes or removes the file; answers whether the state now is the one asked for. Enabling
    // when already enabled leaves the file alone; disabling when absent does nothing.
    bool setLaunchAtLogin(bool enabled);

private:
    QString m_program;
};
