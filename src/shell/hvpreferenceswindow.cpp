#include "hvpreferenceswindow.h"

#include "hvpreferences.h"

#include <QDialogButtonBox>
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
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close, this);
    connect(buttons, &QDialogButtonBox::rejected, preferences, &HVPreferences::close);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(m_tabs);
    layout->addWidget(buttons);
}
