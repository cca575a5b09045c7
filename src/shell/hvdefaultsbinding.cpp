#include "hvdefaultsbinding.h"

#include "common/hvuserdefaults.h"

#include <QAbstractSlider>
#include <QCheckBox>
#include <QComboBox>
#include <QSignalBlocker>
#include <QSpinBox>

#include <algorithm>
#include <cmath>

namespace HVDefaultsBinding {
namespace {
// Calls `show` now and whenever `key` changes, for as long as `widget` lives.
template<typename Show>
void follow(QWidget* widget, HVUserDefaults* defaults, const QString& key, Show show)
{
    show();
    QObject::connect(defaults, &HVUserDefaults::valueChanged, widget, [key, show](const QString& changed) {
        if (changed == key)
            show();
    });
}

int clampLogged(const QString& key, qint64 value, int minimum, int maximum)
{
    const int clamped = int(std::clamp<qint64>(value, minimum, maximum));
    if (clamped != value)
        qWarning("Preference \"%s\" is %lld, outside %d to %d; shown as %d", qPrintable(key),
                 qlonglong(value), minimum, maximum, clamped);
    return clamped;
}
} // namespace

void bindCheckBox(QCheckBox* box, HVUserDefaults* defaults, const QString& key)
{
    follow(box, defaults, key, [box, defaults, key] {
        const QSignalBlocker blocker(box);
        box->setChecked(defaults->boolForKey(key));
    });
    QObject::connect(box, &QCheckBox::toggled, defaults,
                     [defaults, key](bool on) { defaults->setBool(on, key); });
}

template<typename Control>
void bindInteger(Control* control, HVUserDefaults* defaults, const QString& key, int minimum, int maximum)
{
    control->setRange(minimum, maximum);
    follow(control, defaults, key, [control, defaults, key, minimum, maximum] {
        const QSignalBlocker blocker(control);
        control->setValue(clampLogged(key, defaults->integerForKey(key), minimum, maximum));
    });
    QObject::connect(control, &Control::valueChanged, defaults,
                     [defaults, key](int value) { defaults->setInteger(value, key); });
}

void bindSlider(QAbstractSlider* slider, HVUserDefaults* defaults, const QString& key, int minimum,
                int maximum)
{
    bindInteger(slider, defaults, key, minimum, maximum);
}

void bindSpinBox(QSpinBox* box, HVUserDefaults* defaults, const QString& key, int minimum, int maximum)
{
    bindInteger(box, defaults, key, minimum, maximum);
}

void bindFloatSlider(QAbstractSlider* slider, HVUserDefaults* defaults, const QString& key, double minimum,
                     double maximum, int steps)
{
    slider->setRange(0, steps);
    const double step = (maximum - minimum) / steps;
    follow(slider, defaults, key, [=] {
        const double value = defaults->doubleForKey(key);
        const double clamped = std::isfinite(value) ? std::clamp(value, minimum, maximum) : minimum;
        if (clamped != value)
            qWarning("Preference \"%s\" is %g, outside %g to %g; shown as %g", qPrintable(key), value,
                     minimum, maximum, clamped);
        const QSignalBlocker blocker(slider);
        slider->setValue(int(std::lround((clamped - minimum) / step)));
    });
    QObject::connect(slider, &QAbstractSlider::valueChanged, defaults,
                     [=](int position) { defaults->setDouble(minimum + position * step, key); });
}

void bindChoice(QComboBox* box, HVUserDefaults* defaults, const QString& key,
                const QList<QPair<QString, int>>& items)
{
    for (const auto& [title, value] : items)
        box->addItem(title, value);
    follow(box, defaults, key, [box, defaults, key] {
        const qint64 value = defaults->integerForKey(key);
        int index = box->findData(int(value));
        if (index < 0) {
            qWarning("Preference \"%s\" is %lld, which is not one of its choices; shown as the first",
                     qPrintable(key), qlonglong(value));
            index = 0;
        }
        const QSignalBlocker blocker(box);
        box->setCurrentIndex(index);
    });
    QObject::connect(box, &QComboBox::activated, defaults, [box, defaults, key](int index) {
        defaults->setInteger(box->itemData(index).toInt(), key);
    });
}
} // namespace HVDefaultsBinding
