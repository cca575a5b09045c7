// Notes in the "nimbo.startup" log (off unless QT_LOGGING_RULES turns it on) when a widget has
// finished its first paint, and how long after the probe was made: how start-up time is measured
// from outside the process.
#pragma once

#include <QElapsedTimer>
#include <QObject>

class QWidget;

class FirstPaintProbe : public QObject
{
    Q_OBJECT
public:
    explicit FirstPaintProbe(QWidget* widget);

protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

private:
    QElapsedTimer m_sinceStart;
};
