// The colour sorting options sheet, opened from the General tab: the five parameters of the
// colour order, applied live (the catalogue re-sorts as each changes), and a reset to the
// defaults.
#include "hvpreferenceswindow.h"

#include "hvdefaultsbinding.h"
#include "hvpreferences.h"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSlider>

using namespace HVDefaultsBinding;

QDialog* HVPreferencesWindow::colourSortingSheet()
{
    if (m_colourSheet)
        return m_colourSheet;
    m_colourSheet = new QDialog(this);
    m_colourSheet->setObjectName(QStringLiteral("ColourSortingOptions"));
    m_colourSheet->setWindowTitle(tr("Colour Sorting Options"));
    auto* form = new QFormLayout(m_colourSheet);
    struct Parameter
    {
        const char* key;
        QString title;
        double maximum;
        int steps;
    };
    const QList<Parameter> parameters = {
        {"colorSortGrayThreshold", tr("Share of coloured pixels for a colourful icon:"), 1.0, 100},
        {"colorSortWrapHue", tr("Hue the colour order starts at (degrees):"), 360.0, 360},
        {"colorSortMinSaturation", tr("Least saturation of a colour:"), 1.0, 100},
        {"colorSortMinLuminosity", tr("Least lightness of a colour:"), 1.0, 100},
    };
    for (const Parameter& parameter : parameters) {
        auto* slider = new QSlider(Qt::Horizontal);
        slider->setObjectName(QString::fromLatin1(parameter.key));
        bindFloatSlider(slider, m_defaults, QString::fromLatin1(parameter.key), 0.0, parameter.maximum,
                        parameter.steps);
        form->addRow(parameter.title, slider);
    }
    auto* grays = new QCheckBox(tr("Order grey icons by their strongest colour"));
    grays->setObjectName(QStringLiteral("colorSortGraysBySecondaryColor"));
    bindCheckBox(grays, m_defaults, QStringLiteral("colorSortGraysBySecondaryColor"));
    form->addRow(grays);

    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Close | QDialogButtonBox::RestoreDefaults);
    buttons->button(QDialogButtonBox::RestoreDefaults)
        ->setObjectName(QStringLiteral("resetColorSortingOptions"));
    connect(buttons->button(QDialogButtonBox::RestoreDefaults), &QPushButton::clicked, m_preferences,
            &HVPreferences::resetColorSortingOptions);
    connect(buttons, &QDialogButtonBox::rejected, m_colourSheet, &QDialog::hide);
    form->addRow(buttons);
    return m_colourSheet;
}
