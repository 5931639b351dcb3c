#pragma once
// Event classes, qualifier bits, button codes and raw key codes of window
// messages, with fixed values: the editor tests these numbers directly.
#include <cstdint>

// IDCMP classes: IntuiMessage::Class and the bits of a window's event mask.
constexpr uint32_t IDCMP_SIZEVERIFY = 0x00000001;
constexpr uint32_t IDCMP_NEWSIZE = 0x00000002;
constexpr uint32_t IDCMP_REFRESHWINDOW = 0x00000004;
constexpr uint32_t IDCMP_MOUSEBUTTONS = 0x00000008;
constexpr uint32_t IDCMP_MOUSEMOVE = 0x00000010;
constexpr uint32_t IDCMP_GADGETDOWN = 0x00000020;
constexpr uint32_t IDCMP_GADGETUP = 0x00000040;
constexpr uint32_t IDCMP_MENUPICK = 0x00000100;
constexpr uint32_t IDCMP_CLOSEWINDOW = 0x00000200;
constexpr uint32_t IDCMP_RAWKEY = 0x00000400;
constexpr uint32_t IDCMP_MENUVERIFY = 0x00002000;
constexpr uint32_t IDCMP_ACTIVEWINDOW = 0x00040000;
constexpr uint32_t IDCMP_INACTIVEWINDOW = 0x00080000;
constexpr uint32_t IDCMP_VANILLAKEY = 0x00200000;
constexpr uint32_t IDCMP_INTUITICKS = 0x00400000;
constexpr uint32_t IDCMP_IDCMPUPDATE = 0x00800000;
constexpr uint32_t IDCMP_MENUHELP = 0x01000000;
constexpr uint32_t IDCMP_CHANGEWINDOW = 0x02000000;
constexpr uint32_t IDCMP_GADGETHELP = 0x04000000;
constexpr uint32_t IDCMP_EXTENDEDMOUSE = 0x08000000;

// Qualifier bits of IntuiMessage::Qualifier.
constexpr uint16_t IEQUALIFIER_LSHIFT = 0x0001;
constexpr uint16_t IEQUALIFIER_RSHIFT = 0x0002;
constexpr uint16_t IEQUALIFIER_CAPSLOCK = 0x0004;
constexpr uint16_t IEQUALIFIER_CONTROL = 0x0008;
constexpr uint16_t IEQUALIFIER_LALT = 0x0010;
constexpr uint16_t IEQUALIFIER_RALT = 0x0020;
constexpr uint16_t IEQUALIFIER_LCOMMAND = 0x0040;
constexpr uint16_t IEQUALIFIER_RCOMMAND = 0x0080;
constexpr uint16_t IEQUALIFIER_NUMERICPAD = 0x0100;
constexpr uint16_t IEQUALIFIER_REPEAT = 0x0200;
constexpr uint16_t IEQUALIFIER_MIDBUTTON = 0x1000;
constexpr uint16_t IEQUALIFIER_RBUTTON = 0x2000;
constexpr uint16_t IEQUALIFIER_LEFTBUTTON = 0x4000;
constexpr uint16_t IEQUALIFIER_RELATIVEMOUSE = 0x8000;

constexpr uint16_t IEQUALIFIER_SHIFT = IEQUALIFIER_LSHIFT | IEQUALIFIER_RSHIFT;
constexpr uint16_t IEQUALIFIER_ALT = IEQUALIFIER_LALT | IEQUALIFIER_RALT;

// Codes of IDCMP_RAWKEY and IDCMP_MOUSEBUTTONS. A release is the press code
// with IECODE_UP_PREFIX added.
constexpr uint16_t IECODE_UP_PREFIX = 0x80;
constexpr uint16_t IECODE_LBUTTON = 0x68;
constexpr uint16_t IECODE_RBUTTON = 0x69;
constexpr uint16_t IECODE_MBUTTON = 0x6A;
constexpr uint16_t IECODE_NOBUTTON = 0xFF;
constexpr uint16_t SELECTDOWN = IECODE_LBUTTON;
constexpr uint16_t SELECTUP = IECODE_LBUTTON | IECODE_UP_PREFIX;
constexpr uint16_t MENUDOWN = IECODE_RBUTTON;
constexpr uint16_t MENUUP = IECODE_RBUTTON | IECODE_UP_PREFIX;
constexpr uint16_t MIDDLEDOWN = IECODE_MBUTTON;
constexpr uint16_t MIDDLEUP = IECODE_MBUTTON | IECODE_UP_PREFIX;

// Code of IDCMP_MENUPICK / IDCMP_MENUHELP when no item was chosen.
constexpr uint16_t MENUNULL = 0xFFFF;

// Raw key codes (positions on the keyboard; the characters come from the
// keymap). Codes 0x00 to 0x40 are character keys, 0x40 the space bar.
constexpr uint16_t RAWKEY_TILDE = 0x00;
constexpr uint16_t RAWKEY_1 = 0x01;   // 0x01 to 0x0A: 1 to 9, 0
constexpr uint16_t RAWKEY_Q = 0x10;
constexpr uint16_t RAWKEY_A = 0x20;
constexpr uint16_t RAWKEY_Z = 0x31;
constexpr uint16_t RAWKEY_KP_0 = 0x0F;
constexpr uint16_t RAWKEY_KP_1 = 0x1D;
constexpr uint16_t RAWKEY_KP_2 = 0x1E;
constexpr uint16_t RAWKEY_KP_3 = 0x1F;
constexpr uint16_t RAWKEY_KP_4 = 0x2D;
constexpr uint16_t RAWKEY_KP_5 = 0x2E;
constexpr uint16_t RAWKEY_KP_6 = 0x2F;
constexpr uint16_t RAWKEY_KP_DECIMAL = 0x3C;
constexpr uint16_t RAWKEY_KP_7 = 0x3D;
constexpr uint16_t RAWKEY_KP_8 = 0x3E;
constexpr uint16_t RAWKEY_KP_9 = 0x3F;
constexpr uint16_t RAWKEY_SPACE = 0x40;
constexpr uint16_t RAWKEY_BACKSPACE = 0x41;
constexpr uint16_t RAWKEY_TAB = 0x42;
constexpr uint16_t RAWKEY_ENTER = 0x43;   // Enter of the numeric pad
constexpr uint16_t RAWKEY_RETURN = 0x44;
constexpr uint16_t RAWKEY_ESC = 0x45;
constexpr uint16_t RAWKEY_DEL = 0x46;
constexpr uint16_t RAWKEY_INSERT = 0x47;
constexpr uint16_t RAWKEY_PAGEUP = 0x48;
constexpr uint16_t RAWKEY_PAGEDOWN = 0x49;
constexpr uint16_t RAWKEY_KP_MINUS = 0x4A;
constexpr uint16_t RAWKEY_F11 = 0x4B;
constexpr uint16_t RAWKEY_CRSRUP = 0x4C;
constexpr uint16_t RAWKEY_CRSRDOWN = 0x4D;
constexpr uint16_t RAWKEY_CRSRRIGHT = 0x4E;
constexpr uint16_t RAWKEY_CRSRLEFT = 0x4F;
constexpr uint16_t RAWKEY_F1 = 0x50;   // 0x50 to 0x59: F1 to F10
constexpr uint16_t RAWKEY_F10 = 0x59;
constexpr uint16_t RAWKEY_KP_LPAREN = 0x5A;
constexpr uint16_t RAWKEY_KP_RPAREN = 0x5B;
constexpr uint16_t RAWKEY_KP_DIVIDE = 0x5C;
constexpr uint16_t RAWKEY_KP_MULTIPLY = 0x5D;
constexpr uint16_t RAWKEY_KP_PLUS = 0x5E;
constexpr uint16_t RAWKEY_HELP = 0x5F;
constexpr uint16_t RAWKEY_LSHIFT = 0x60;
constexpr uint16_t RAWKEY_RSHIFT = 0x61;
constexpr uint16_t RAWKEY_CAPSLOCK = 0x62;
constexpr uint16_t RAWKEY_CONTROL = 0x63;
constexpr uint16_t RAWKEY_LALT = 0x64;
constexpr uint16_t RAWKEY_RALT = 0x65;
constexpr uint16_t RAWKEY_LCOMMAND = 0x66;
constexpr uint16_t RAWKEY_RCOMMAND = 0x67;
constexpr uint16_t RAWKEY_F12 = 0x6F;
constexpr uint16_t RAWKEY_HOME = 0x70;
constexpr uint16_t RAWKEY_END = 0x71;
constexpr uint16_t RAWKEY_WHEEL_UP = 0x7A;     // convert to no character
constexpr uint16_t RAWKEY_WHEEL_DOWN = 0x7B;
