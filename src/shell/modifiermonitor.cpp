#include "modifiermonitor.h"

#include "common/hvnotificationcenter.h"
#include "common/notificationnames.h"

#include <QCoreApplication>
#include <QKeyEvent>

namespace {
bool isModifierKey(int key)
{
    return key == Qt::Key_Shift || key == Qt::Key_Control || key == Qt::Key_Alt || key == Qt::Key_Meta ||
           key == Qt::Key_AltGr || key == Qt::Key_Super_L || key == Qt::Key_Super_R;
}
} // namespace

ModifierMonitor::ModifierMonitor(QObject* parent) : QObject(parent)
{
    QCoreApplication::instance()->installEventFilter(this);
}

bool ModifierMonitor::eventFilter(QObject* watched, QEvent* event)
{
    if (m_enabled && (event->type() == QEvent::KeyPress || event->type() == QEvent::KeyRelease)) {
        auto* key = static_cast<QKeyEvent*>(event);
        const int modifiers = int(key->modifiers());
        if (isModifierKey(key->key()) && modifiers != m_lastModifiers) {
            m_lastModifiers = modifiers;
            HVNotificationCenter::defaultCenter()->postNotificationName(
                HVNotificationNames::EventFlagsChanged,
                QVariant::fromValue<QObject*>(QCoreApplication::instance()),
                {{QStringLiteral("event"), modifiers}});
        }
    }
    return QObject::eventFilter(watched, event);
}
