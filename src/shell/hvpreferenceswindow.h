// The preferences window: one tab per concern, each built in its own file
// (hvpreferenceswindow_<tab>.cpp). Every control is named after the preference it edits.
#pragma once

#include <QDialog>

class HVArrayController;
class HVPreferences;
class HVRemoverChooser;
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
    HVArrayController* folders() const { return m_folders; }
    // The colour sorting options sheet over this window, made when first asked for.
    QDialog* colourSortingSheet();
    // The app remover chooser over this window, made when first asked for.
    HVRemoverChooser* removerChooser();

protected:
    // Some seldom-needed controls show only while Alt is held.
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;

private:
    QWidget* generalTab();
    QWidget* triggersTab();
    QWidget* foldersTab();
    void showAltControls(bool shown);
    // The hot key: the key pop-up and the four modifier boxes, applied through setHotKey.
    QWidget* hotKeyControls();
    void showHotKey();
    void setHotKey();

    HVPreferences* m_preferences;
    HVUserDefaults* m_defaults;
    QTabWidget* m_tabs;
    HVArrayController* m_folders = nullptr;
    QDialog* m_colourSheet = nullptr;
    HVRemoverChooser* m_removerChooser = nullptr;
    QList<QWidget*> m_altControls;
    QComboBox* m_hotKeyButton = nullptr;
    QList<QCheckBox*> m_modifierBoxes;
    QLabel* m_hotKeyProblem = nullptr;
};
