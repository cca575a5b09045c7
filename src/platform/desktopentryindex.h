// The installed desktop entries, looked up the ways a window names its application: by
// StartupWMClass, by desktop ID and by the program the entry runs. The first entry added for a
// key keeps it.
#pragma once

#include <QHash>
#include <QString>

struct DesktopEntryFacts
{
    QString path;
    QString desktopId;      // "org.gnome.Calculator.desktop"
    QString startupWMClass; // may be empty
    QString executable;     // the Exec program's resolved path; may be empty
};

class DesktopEntryIndex
{
public:
    void add(const DesktopEntryFacts& entry);
    // Exact, case-sensitive match.
    QString pathForStartupWMClass(const QString& wmClass) const;
    // Case-insensitive; the ".desktop" suffix is optional.
    QString pathForDesktopId(const QString& desktopId) const;
    QString pathForExecutable(const QString& executable) const;
    int count() const { return m_count; }

    // Every application entry GIO knows for the current XDG folders.
    static DesktopEntryIndex fromInstalledApplications();

private:
    static QString idKey(const QString& desktopId);

    QHash<QString, QString> m_byWMClass;
    QHash<QString, QString> m_byId;
    QHash<QString, QString> m_byExecutable;
    int m_count = 0;
};
