// Controls bound to a preference: each shows the effective value (clamped into its range, with a
// log line when the stored value lies outside it), writes the user's changes at once, and follows
// changes made elsewhere (nimboctl, another process editing the file).
#pragma once

#include <QList>
#include <QPair>
#include <QString>

class HVUserDefaults;
class QAbstractSlider;
class QCheckBox;
class QComboBox;
class QSpinBox;

namespace HVDefaultsBinding {
void bindCheckBox(QCheckBox* box, HVUserDefaults* defaults, const QString& key);
// An integer preference kept in [minimum, maximum].
void bindSlider(QAbstractSlider* slider, HVUserDefaults* defaults, const QString& key, int minimum,
                int maximum);
void bindSpinBox(QSpinBox* box, HVUserDefaults* defaults, const QString& key, int minimum, int maximum);
// A floating-point preference shown as a slider of `steps` steps over [minimum, maximum].
void bindFloatSlider(QAbstractSlider* slider, HVUserDefaults* defaults, const QString& key, double minimum,
                     double maximum, int steps);
// An integer preference chosen among (title, value) items.
void bindChoice(QComboBox* box, HVUserDefaults* defaults, const QString& key,
                const QList<QPair<QString, int>>& items);
} // namespace HVDefaultsBinding
