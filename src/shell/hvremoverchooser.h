// Choosing the app remover among the installed applications. The chosen one is stored as
// "appRemoverName" and "appRemoverBundleIdentifier" (its desktop ID) only when it can open the
// appstream:// links Nimbo sends; any other is refused with an alert, the remover unchanged, and
// the list stays open for another choice.
#pragma once

#include <QDialog>

#include "platform/removercandidates.h"

class HVAppManager;
class HVUserDefaults;
class QListWidget;
class QPushButton;

class HVRemoverChooser : public QDialog
{
    Q_OBJECT
public:
    HVRemoverChooser(HVUserDefaults* defaults, HVAppManager* catalogue, QWidget* parent);

    // Lists the installed applications afresh, the current remover selected.
    void reload();
    QListWidget* list() const { return m_list; }
    // Stores the candidate as the remover and closes, or refuses it with the alert: true when
    // stored.
    bool choose(const RemoverCandidate& candidate);

private:
    void chooseSelected();

    HVUserDefaults* m_defaults;
    HVAppManager* m_catalogue;
    QList<RemoverCandidate> m_candidates;
    QListWidget* m_list;
    QPushButton* m_choose;
};
