#include "hvpreferenceswindow.h"

#include "hvpreferences.h"

#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QTabWidget>
#include <QVBoxLayout>

HVPreferencesWindow::HVPreferencesWindow(HVPreferences* preferences, HVUserDefaults* defaults,
                                         QWidget* parent)
    : QDialog(parent), m_preferences(preferences), m_defaults(defaults), m_tabs(new QTabWidget(this))
{
    setObjectName(QStringLiteral("Preferences"));
    setWindowTitle(tr("Nimbo Preferences"));
    m_tabs->addTab(generalTab(), tr("General"));
    m_tabs->addTab(triggersTab(), tr("Triggers"));
    m_tabs->addTab(foldersTab(), tr("Folders"));
    showAltControls(false);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, preferences, &HVPreferences::close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addWidget(buttons);
}

void HVPreferencesWindow::keyPressEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Alt)
        showAltControls(true);
    QDialog::keyPressEvent(event);
}

void HVPreferencesWindow::keyReleaseEvent(QKeyEvent* event)
{
    if (event->key() == Qt::Key_Alt)
        showAltControls(false);
    QDialog::keyReleaseEvent(event);
}

void HVPreferencesWindow::showAltControls(bool shown)
{
    for (QWidget* control : std::as_const(m_altControls))
        control->setVisible(shown);
}
