// The "General" tab: how the panel looks, what it shows first and where applications go for removal.
#include "hvpreferenceswindow.h"

#include "hvcontroller.h"
#include "hvdefaultsbinding.h"
#include "hvpreferences.h"
#include "hvremoverchooser.h"

#include "catalogue/hvappgroup.h"
#include "common/hvuserdefaults.h"

#include <QCheckBox>
#include <QComboBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QSlider>

using namespace HVDefaultsBinding;

namespace {
template<typename Control>
Control* named(Control* control, const char* key)
{
    control->setObjectName(QString::fromLatin1(key));
    return control;
}
} // namespace

QWidget* HVPreferencesWindow::generalTab()
{
    auto* tab = new QWidget;
    auto* form = new QFormLayout(tab);

    auto* iconSize = named(new QSlider(Qt::Horizontal), "maximumIconSize");
    iconSize->setPageStep(16);
    auto* iconSizeLabel = new QLabel;
    connect(iconSize, &QSlider::valueChanged, iconSizeLabel,
            [iconSizeLabel](int value) { iconSizeLabel->setText(tr("%1 px").arg(value)); });
    bindSlider(iconSize, m_defaults, QStringLiteral("maximumIconSize"), 16, 128);
    iconSizeLabel->setText(tr("%1 px").arg(iconSize->value()));
    auto* sizeRow = new QHBoxLayout;
    sizeRow->addWidget(iconSize);
    sizeRow->addWidget(iconSizeLabel);
    form->addRow(tr("Icon size:"), sizeRow);

    auto* group = named(new QComboBox, "groupToShowWhenWindowOpens");
    bindChoice(group, m_defaults, QStringLiteral("groupToShowWhenWindowOpens"),
               {{tr("The list shown last"), -1},
                {tr("Running applications"), HVAppGroupRunning},
                {tr("Applications"), HVAppGroupIncluded},
                {tr("Excluded applications"), HVAppGroupExcluded},
                {tr("All applications"), HVAppGroupAll},
                {tr("Favourites"), HVAppGroupUser}});
    form->addRow(tr("Show at opening:"), group);

    auto* opacity = named(new QSlider(Qt::Horizontal), "windowAlpha");
    bindFloatSlider(opacity, m_defaults, QStringLiteral("windowAlpha"), 0.2, 1.0, 16);
    form->addRow(tr("Panel opacity:"), opacity);

    auto* colours = named(new QPushButton(tr("Colour Sorting Options…")), "openColorSortingOptions");
    connect(colours, &QPushButton::clicked, this, [this] {
        colourSortingSheet()->show();
        colourSortingSheet()->raise();
    });
    form->addRow(tr("Colour order:"), colours);

    auto* removerName = named(new QLabel, "appRemoverName");
    const auto showRemover = [this, removerName] {
        removerName->setText(m_defaults->stringForKey(QStringLiteral("appRemoverName")));
    };
    showRemover();
    connect(m_defaults, &HVUserDefaults::valueChanged, removerName, [showRemover](const QString& key) {
        if (key == QLatin1String("appRemoverName"))
            showRemover();
    });
    auto* chooseRemover = named(new QPushButton(tr("Choose…")), "setAppRemover");
    connect(chooseRemover, &QPushButton::clicked, this, [this] {
        removerChooser()->reload();
        removerChooser()->show();
        removerChooser()->raise();
    });
    auto* removerRow = new QHBoxLayout;
    removerRow->addWidget(removerName, 1);
    removerRow->addWidget(chooseRemover);
    form->addRow(tr("App remover:"), removerRow);

    auto* atLaunch = named(new QCheckBox(tr("Show the panel when Nimbo starts")), "showWindowAtLaunch");
    bindCheckBox(atLaunch, m_defaults, QStringLiteral("showWindowAtLaunch"));
    form->addRow(atLaunch);
    auto* minimize = named(new QCheckBox(tr("Leave out empty cells")), "minimizeEmptyCells");
    bindCheckBox(minimize, m_defaults, QStringLiteral("minimizeEmptyCells"));
    m_altControls.append(minimize);
    form->addRow(minimize);
    auto* atLogin = named(new QCheckBox(tr("Start Nimbo at login")), "startAtLogin");
    bindCheckBox(atLogin, m_defaults, QStringLiteral("startAtLogin"));
    form->addRow(atLogin);
    return tab;
}

HVRemoverChooser* HVPreferencesWindow::removerChooser()
{
    if (!m_removerChooser)
        m_removerChooser = new HVRemoverChooser(m_defaults, m_preferences->controller()->appManager(), this);
    return m_removerChooser;
}
