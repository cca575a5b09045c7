// The "Triggers" tab: the ways the panel is summoned — hot key, tray, taskbar, hot spot.
#include "hvpreferenceswindow.h"

#include "hvcontroller.h"
#include "hvdefaultsbinding.h"
#include "hvhotspotwindow.h"
#include "hvkeytable.h"
#include "hvpreferences.h"

#include "common/hvuserdefaults.h"
#include "platform/globalhotkey.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QSignalBlocker>

using namespace HVDefaultsBinding;

namespace {
// The modifier boxes in the order they are shown, with the bit each stands for.
const QList<QPair<const char*, int>> ModifierBoxes = {
    {"hotKeyControl", GlobalHotKey::Control},
    {"hotKeyAlt", GlobalHotKey::Option},
    {"hotKeySuper", GlobalHotKey::Command},
    {"hotKeyShift", GlobalHotKey::Shift},
};
} // namespace

QWidget* HVPreferencesWindow::triggersTab()
{
    auto* tab = new QWidget;
    auto* form = new QFormLayout(tab);
    form->addRow(tr("Hot key:"), hotKeyControls());
    m_hotKeyProblem = new QLabel;
    m_hotKeyProblem->setObjectName(QStringLiteral("hotKeyProblem"));
    m_hotKeyProblem->setWordWrap(true);
    m_hotKeyProblem->setText(m_preferences->controller()->desktopShortcutAdvice());
    connect(m_preferences->controller(), &HVController::desktopShortcutNeeded, m_hotKeyProblem,
            [this] { m_hotKeyProblem->setText(m_preferences->controller()->desktopShortcutAdvice()); });
    form->addRow(m_hotKeyProblem);

    const QList<QPair<const char*, QString>> boxes = {
        {"showAppInStatusBar", tr("Show Nimbo in the tray")},
        {"statusBarTogglesWindow", tr("Clicking the tray icon shows or hides the panel")},
        {"showIconInDock", tr("Show Nimbo in the taskbar")},
    };
    for (const auto& [key, title] : boxes) {
        auto* box = new QCheckBox(title);
        box->setObjectName(QString::fromLatin1(key));
        bindCheckBox(box, m_defaults, QString::fromLatin1(key));
        form->addRow(box);
    }
    auto* hotSpot = new QComboBox;
    hotSpot->setObjectName(QStringLiteral("cursorHotSpotLocation"));
    bindChoice(hotSpot, m_defaults, QStringLiteral("cursorHotSpotLocation"),
               {{tr("None"), 0},
                {tr("Top-left corner"), 1},
                {tr("Left edge"), 2},
                {tr("Bottom-left corner"), 3},
                {tr("Bottom edge"), 4},
                {tr("Bottom-right corner"), 5},
                {tr("Right edge"), 6},
                {tr("Top-right corner"), 7},
                {tr("Top edge"), 8}});
    form->addRow(tr("Cursor hot spot:"), hotSpot);
    if (!HVHotSpotWindow::isSupported()) {
        hotSpot->setEnabled(false);
        auto* why = new QLabel(tr("Cursor hot spots need an X11 session: on Wayland no program may follow "
                                  "the pointer or place windows at the screen's edges."));
        why->setObjectName(QStringLiteral("hotSpotsUnavailable"));
        why->setWordWrap(true);
        form->addRow(why);
    }
    return tab;
}

QWidget* HVPreferencesWindow::hotKeyControls()
{
    auto* row = new QWidget;
    auto* layout = new QHBoxLayout(row);
    layout->setContentsMargins(0, 0, 0, 0);
    for (const auto& [name, bit] : ModifierBoxes) {
        static const QHash<int, QString> titles = {{GlobalHotKey::Control, tr("Ctrl")},
                                                   {GlobalHotKey::Option, tr("Alt")},
                                                   {GlobalHotKey::Command, tr("Super")},
                                                   {GlobalHotKey::Shift, tr("Shift")}};
        auto* box = new QCheckBox(titles.value(bit));
        box->setObjectName(QString::fromLatin1(name));
        connect(box, &QCheckBox::clicked, this, &HVPreferencesWindow::setHotKey);
        layout->addWidget(box);
        m_modifierBoxes.append(box);
    }
    m_hotKeyButton = new QComboBox;
    m_hotKeyButton->setObjectName(QStringLiteral("hotKeyCode"));
    for (const HVKeyTableRow& key : HVKeyTable::rows())
        m_hotKeyButton->addItem(key.title, key.tag);
    connect(m_hotKeyButton, &QComboBox::activated, this, &HVPreferencesWindow::setHotKey);
    layout->addWidget(m_hotKeyButton, 1);
    showHotKey();
    connect(m_defaults, &HVUserDefaults::valueChanged, this, [this](const QString& key) {
        if (key == QLatin1String("hotKeyCode") || key == QLatin1String("hotKeyModifiers"))
            showHotKey();
    });
    return row;
}

void HVPreferencesWindow::showHotKey()
{
    const int code = int(m_defaults->integerForKey(QStringLiteral("hotKeyCode")));
    const int modifiers = int(m_defaults->integerForKey(QStringLiteral("hotKeyModifiers")));
    const QSignalBlocker blocker(m_hotKeyButton);
    const int index = m_hotKeyButton->findData(code);
    if (index < 0)
        qWarning("Hot key code %d is not one the hot key menu offers", code);
    m_hotKeyButton->setCurrentIndex(index);
    for (int i = 0; i < m_modifierBoxes.size(); ++i)
        m_modifierBoxes[i]->setChecked(modifiers & ModifierBoxes[i].second);
}

void HVPreferencesWindow::setHotKey()
{
    int mask = 0;
    for (int i = 0; i < m_modifierBoxes.size(); ++i)
        if (m_modifierBoxes[i]->isChecked())
            mask |= ModifierBoxes[i].second;
    const QString problem = m_preferences->setHotKey(m_hotKeyButton->currentData().toInt(), mask);
    m_hotKeyProblem->setText(problem.isEmpty() ? m_preferences->controller()->desktopShortcutAdvice()
                                               : problem);
    showHotKey(); // a refused combination goes back to the one in force
}
