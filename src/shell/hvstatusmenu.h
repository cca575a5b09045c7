// The menu Nimbo offers outside its panel: on the tray item and on the panel's gear button. Its
// items come in a fixed order, in sections split by separators; an item whose window Nimbo does
// not have yet is simply not there, and empty sections collapse.
#pragma once

#include <QMenu>

class HVController;

class HVStatusMenu : public QMenu
{
    Q_OBJECT
public:
    explicit HVStatusMenu(HVController* controller, QWidget* parent = nullptr);

    QAction* showHideAction() const { return m_showHide; }
    QAction* preferencesAction() const { return m_preferences; }
    QAction* automaticExclusionAction() const { return m_autoExclude; }
    QAction* feedbackAction() const { return m_feedback; }

private:
    // Titles and enabled states follow the controller each time the menu opens.
    void validateMenuItems();

    HVController* m_controller;
    QAction* m_showHide;
    QAction* m_preferences;
    QAction* m_autoExclude;
    QAction* m_welcome;
    QAction* m_feedback;
};
