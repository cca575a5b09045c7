#include "firstpaintprobe.h"

#include <QEvent>
#include <QLoggingCategory>
#include <QWidget>

Q_LOGGING_CATEGORY(lcStartup, "nimbo.startup", QtWarningMsg)

FirstPaintProbe::FirstPaintProbe(QWidget* widget) : QObject(widget)
{
    m_sinceStart.start();
    if (lcStartup().isInfoEnabled())
        widget->installEventFilter(this);
}

bool FirstPaintProbe::eventFilter(QObject* watched, QEvent* event)
{
    if (event->type() != QEvent::Paint)
        return false;
    watched->removeEventFilter(this);
    // The paint itself runs here so that the note comes after it, not before.
    watched->event(event); // virtual: the widget's own paint
    qCInfo(lcStartup, "panel painted %lld ms after start", qint64(m_sinceStart.elapsed()));
    return true;
}
