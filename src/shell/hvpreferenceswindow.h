// The preferences window: one tab per concern, each built in its own file
// (hvpreferenceswindow_<tab>.cpp). Every control is named after the preference it edits.
#pragma once

#include <QDialog>

class HVPreferences;
class HVUserDefaults;
class QCheckBox;
class QComboBox;
class QLabel;
class QTabWidget;

class HVPreferencesWindow : public QDialog
{
    Q_OBJECT
public:
    HVPreferencesWindow(HVPreferences* preferences, HVUserDefaults* defaults, QWidget* parent);

    QTabWidget* tabs() const { return m_tabs; }

private:
    QWidget* generalTab();
    QWidget* triggersTab();
    // The hot key: the key pop-up and the four modifier boxes, applied through setHotKey.
    QWidget* hotKeyControls();
    void showHotKey();
    void setHotKey();

    HVPreferences* m_preferences;
    HVUserDefaults* m_defaults;
    QTabWidget* m_tabs;
    QComboBox* m_hotKeyButton = nullptr;
    QList<QCheckBox*> m_modifierBoxes;
    QLabel* m_hotKeyProblem = nullptr;
};
