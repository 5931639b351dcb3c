#pragma once
// Keys: the characters of a key event, the default keyboard layout, and key
// names as written in event scripts ("Shift+Return", "Ctrl+Alt+Esc",
// "Alt+Num+3", "Ctrl+q", "A", "Space").
#include "platform/display/intuition.h"

#include <cstdint>
#include <string>

// The ISO 8859-1 characters of a key message under a qualifier, as the
// console converts a raw key: the layer chosen by Shift and Alt, then with
// Ctrl a character from '@' to '_' or 'a' to 'z' becomes its control code
// (Ctrl + q gives 17). `qualifier` -1 uses the message's own. Writes at most
// size - 1 bytes and a terminator; gives the count written, 0 for a key
// release, a non-key message or a key without characters (wheel, Shift).
int KeyToText(const IntuiMessage* message, char* buffer, int size, int qualifier = -1);

// The default layout (a US keyboard): the characters of a raw key, as the
// headless backend posts them. Character keys give their characters (the
// Alt layers repeat the plain ones); Return and Enter give 13, Tab 9
// (Shift+Tab CSI "Z"), Backspace 8, Del 127, Esc 27; cursor, function,
// Help and navigation keys give the console's CSI (0x9B) sequences.
KeyChars DefaultKeyChars(uint16_t rawCode);

// The raw key and qualifier that type a character on the default layout:
// Shift for shifted characters. A character that no key gives (most of
// 0x80 to 0xFF) is typed on key 0x30 with that character in every layer.
struct KeyStroke {
    uint16_t Code = 0;
    uint16_t Qualifier = 0;
    KeyChars Keys;
};
KeyStroke StrokeForChar(unsigned char character);

// Parses a key name: qualifiers Shift, Ctrl, Alt, Amiga, Num joined by '+'
// before a key: Return, Enter, Tab, Backspace, Del, Esc, Insert, Help,
// PageUp, PageDown, Up, Down, Left, Right, Home, End, F1 to F12, Space, or
// one printable character (one byte of ISO 8859-1, or its UTF-8 form).
// Names are matched without regard to case; a single character is taken as
// it stands, with Shift added where the layout needs it ("A" is Shift+a).
// "Num" with a digit or + - * / . ( ) names the numeric pad's key. On
// failure gives false and a message for the user in `error`.
bool ParseKeyStroke(const std::string& name, KeyStroke* stroke, std::string* error);

// The name of a raw key of the tables ("PageUp", "F11"), or null.
const char* RawKeyName(uint16_t rawCode);
