// Reports changes of the modifier keys, application-wide and only while Nimbo is active, as
// "N_EventFlagsChanged" with the modifiers in its "event" entry.
#pragma once

#include <QObject>

class ModifierMonitor : public QObject
{
    Q_OBJECT
public:
    explicit ModifierMonitor(QObject* parent = nullptr);

    void setEnabled(bool enabled) { m_enabled = enabled; }
    bool isEnabled() const { return m_enabled; }

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    bool m_enabled = false;
    int m_lastModifiers = -1;
};
