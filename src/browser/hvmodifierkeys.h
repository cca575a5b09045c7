// The five modifier keys the icon view cares about. On Linux the Command key is Ctrl, Option is
// Alt and Fn is the Super (Meta) key; there is no separate Control key (a Control-click is a right
// click), so `control` stays off.
#pragma once

#include <QVariant>
#include <Qt>

#include <optional>

struct HVModifierKeys
{
    bool shift = false;
    bool control = false;
    bool option = false;
    bool command = false;
    bool function = false;

    static HVModifierKeys fromQt(Qt::KeyboardModifiers modifiers);
    // What the keyboard holds right now. Fn is not read this way.
    static HVModifierKeys fromHardware();
    // From the "event" of a "N_EventFlagsChanged" notification: Qt::KeyboardModifiers as flags or
    // as a number. Nothing usable gives nullopt.
    static std::optional<HVModifierKeys> fromVariant(const QVariant& event);

    friend bool operator==(const HVModifierKeys&, const HVModifierKeys&) = default;
};
