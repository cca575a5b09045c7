// Nimbo on the session bus: the running instance owns "com.halvorndesign.Nimbo" and answers
// Toggle, Show, Hide, Rescan, Quit and Reopen; a second instance or nimboctl calls them.
#pragma once

#include <QObject>
#include <QString>

namespace NimboBus {
inline const QString ServiceName = QStringLiteral("com.halvorndesign.Nimbo");
inline const QString ObjectPath = QStringLiteral("/com/halvorndesign/Nimbo");
inline const QString InterfaceName = QStringLiteral("com.halvorndesign.Nimbo");

// Calls a method of the running instance; false with `error` set when there is none.
bool call(const QString& method, QString* error);
} // namespace NimboBus

// The running instance's side. Each call becomes a signal the controller acts on.
class NimboBusService : public QObject
{
    Q_OBJECT
    Q_CLASSINFO("D-Bus Interface", "com.halvorndesign.Nimbo")
public:
    explicit NimboBusService(QObject* parent = nullptr);

    // Takes the bus name; false when there is no session bus or another instance has it.
    bool registerService();

public slots:
    Q_SCRIPTABLE void Toggle() { emit toggleRequested(); }
    Q_SCRIPTABLE void Show() { emit showRequested(); }
    Q_SCRIPTABLE void Hide() { emit hideRequested(); }
    Q_SCRIPTABLE void Rescan() { emit rescanRequested(); }
    Q_SCRIPTABLE void Quit() { emit quitRequested(); }
    Q_SCRIPTABLE void Reopen() { emit reopenRequested(); }

signals:
    void toggleRequested();
    void showRequested();
    void hideRequested();
    void rescanRequested();
    void quitRequested();
    void reopenRequested();
};
