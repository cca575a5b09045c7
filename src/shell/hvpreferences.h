// The preferences window's owner: it opens the window over the panel (one at a time), closes it
// when the panel hides, and carries out what a control asks beyond writing a preference:
// setting the hot key, which must be grabbed before it is kept.
#pragma once

#include <QObject>
#include <QPointer>

class HVController;
class HVPreferencesWindow;
class HVUserDefaults;

class HVPreferences : public QObject
{
    Q_OBJECT
public:
    HVPreferences(HVController* controller, HVUserDefaults* defaults);
    ~HVPreferences() override;

    void open();
    void close();
    bool isVisible() const;
    // The window, once it has been opened.
    HVPreferencesWindow* window() const;
    HVController* controller() const { return m_controller; }

    // Stores "hotKeyCode" and "hotKeyModifiers" and grabs the key at once. A combination that
    // cannot be grabbed, or one without a modifier, leaves the previous hot key in place and
    // answers why in plain words; an empty answer means done.
    QString setHotKey(int code, int modifierMask);
    // The colour sorting options back to their defaults; the catalogue re-sorts.
    void resetColorSortingOptions();

private:
    HVController* m_controller;
    HVUserDefaults* m_defaults;
    QPointer<HVPreferencesWindow> m_window;
};
