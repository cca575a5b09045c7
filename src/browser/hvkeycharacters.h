// The character a key stands for, whatever modifiers are held: the letter of a Ctrl+letter
// chord, "=" for Ctrl+=, and the control characters of Return (0x0D), Enter (0x03), Backspace
// (0x7F, the delete key of the filter) and Escape (0x1B). Keys that type nothing give "".
#pragma once

#include <QString>

class QKeyEvent;

namespace HVKeyCharacters {
inline constexpr char16_t Return = 0x0D;
inline constexpr char16_t Enter = 0x03;
inline constexpr char16_t Delete = 0x7F;
inline constexpr char16_t Escape = 0x1B;

QString charactersIgnoringModifiers(const QKeyEvent& event);
} // namespace HVKeyCharacters
