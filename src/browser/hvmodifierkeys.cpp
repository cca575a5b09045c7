#include "hvmodifierkeys.h"

#include <QGuiApplication>

HVModifierKeys HVModifierKeys::fromQt(Qt::KeyboardModifiers modifiers)
{
    HVModifierKeys keys;
    keys.shift = modifiers.testFlag(Qt::ShiftModifier);
    keys.option = modifiers.testFlag(Qt::AltModifier);
    keys.command = modifiers.testFlag(Qt::ControlModifier);
    keys.function = modifiers.testFlag(Qt::MetaModifier);
    return keys;
}

HVModifierKeys HVModifierKeys::fromHardware()
{
    HVModifierKeys keys = fromQt(QGuiApplication::queryKeyboardModifiers());
    keys.function = false;
    return keys;
}

std::optional<HVModifierKeys> HVModifierKeys::fromVariant(const QVariant& event)
{
    if (!event.isValid() || event.isNull())
        return std::nullopt;
    if (event.metaType() == QMetaType::fromType<Qt::KeyboardModifiers>())
        return fromQt(event.value<Qt::KeyboardModifiers>());
    bool ok = false;
    const qlonglong bits = event.toLongLong(&ok);
    if (!ok)
        return std::nullopt;
    return fromQt(Qt::KeyboardModifiers::fromInt(int(bits)));
}
