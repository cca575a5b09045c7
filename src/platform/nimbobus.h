// Nimbo on the session bus: the running instance owns "com.halvorndesign.Nimbo" and answers
// Toggle, Show, Hide, Rescan, Preferences, Quit, Reopen and OpenFiles, and organises its lists (Favourites,
// AddFavourite, RemoveFavourite, Exclude, Include); a second instance or nimboctl calls them.
#pragma once

#include <QObject>
#include <QString>
#include <QStringList>
#include <QVariant>

#include <optional>

class HVListEditor;

namespace NimboBus {
inline const QString ServiceName = QStringLiteral("com.halvorndesign.Nimbo");
inline const QString ObjectPath = QStringLiteral("/com/halvorndesign/Nimbo");
inline const QString InterfaceName = QStringLiteral("com.halvorndesign.Nimbo");

// Calls a method of the running instance; false with `error` set when there is none.
bool call(const QString& method, QString* error);
// The same with arguments; the reply's first value (invalid when the method returns nothing).
std::optional<QVariant> call(const QString& method, const QVariantList& arguments, QString* error);
// Whether an instance owns the name now.
bool isRunning();
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
    Q_SCRIPTABLE void Preferences() { emit preferencesRequested(); }
    Q_SCRIPTABLE void Quit() { emit quitRequested(); }
    Q_SCRIPTABLE void Reopen() { emit reopenRequested(); }
    // Files or URLs (encoded URLs) to open with an app the user then picks in the panel.
    Q_SCRIPTABLE void OpenFiles(const QStringList& uris) { emit openFilesRequested(uris); }

    // The lists, organised as the panel's menu does. Each change answers an error message,
    // empty when done; without an editor every call answers that the lists are not ready.
    void setListEditor(HVListEditor* editor) { m_editor = editor; }
    Q_SCRIPTABLE QString Favourites();
    Q_SCRIPTABLE QString AddFavourite(const QString& path, qlonglong bunch, qlonglong index, bool newBunch);
    Q_SCRIPTABLE QString RemoveFavourite(const QString& path);
    Q_SCRIPTABLE QString Exclude(const QStringList& paths);
    Q_SCRIPTABLE QString Include(const QStringList& paths);

signals:
    void toggleRequested();
    void showRequested();
    void hideRequested();
    void rescanRequested();
    void preferencesRequested();
    void quitRequested();
    void reopenRequested();
    void openFilesRequested(const QStringList& uris);

private:
    HVListEditor* m_editor = nullptr;
};
