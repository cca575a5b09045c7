// The names desktops give the systemd units they start applications in:
// "app-[<launcher>-]<application ID>-<random>.scope", "app-[<launcher>-]<application ID>[@<random>].service"
// (and the older "app-<launcher>-<application ID>-<random>.service"). Dashes separate the parts;
// a dash inside a part is escaped as "\x2d", as systemd escapes any character a unit name may
// not hold.
#pragma once

#include <QString>
#include <QStringList>

namespace SystemdUnitName {

enum class Kind {
    NotAnApplication, // no "app-" scope or service (slices, the session's own services)
    Odd,              // an application unit whose name cannot be taken apart
    Application,
};

struct Parsed
{
    Kind kind = Kind::NotAnApplication;
    // The application IDs the name can mean, the likeliest first: with the launcher part
    // left out, then with none, then with longer launcher parts. A desktop that does not
    // escape the dashes of an ID yields several; the installed entries decide.
    QStringList applicationIds;
};

Parsed parse(const QString& unit);

// The name of a scope for a launch of the application by Nimbo: "app-nimbo-<ID>-<random>.scope".
QString scopeForLaunch(const QString& applicationId, quint32 random);

// systemd's escaping of one part of a unit name, and back.
QString escape(const QString& part);
QString unescape(const QString& part);

} // namespace SystemdUnitName
