#include "platform/display/qt/key_translation.h"

#include "platform/display/input_codes.h"
#include "platform/display/keys.h"

#include <algorithm>
#include <cstring>
#include <string>

namespace {

// Keys with a fixed raw code whatever the layout; their characters are those
// of the default layout.
struct FixedKey {
    int qtKey;
    uint16_t code;
};

constexpr FixedKey kFixedKeys[] = {
    {Qt::Key_Space, RAWKEY_SPACE},          {Qt::Key_Backspace, RAWKEY_BACKSPACE},
    {Qt::Key_Tab, RAWKEY_TAB},              {Qt::Key_Backtab, RAWKEY_TAB},
    {Qt::Key_Enter, RAWKEY_ENTER},          {Qt::Key_Return, RAWKEY_RETURN},
    {Qt::Key_Escape, RAWKEY_ESC},           {Qt::Key_Delete, RAWKEY_DEL},
    {Qt::Key_Insert, RAWKEY_INSERT},        {Qt::Key_PageUp, RAWKEY_PAGEUP},
    {Qt::Key_PageDown, RAWKEY_PAGEDOWN},    {Qt::Key_F11, RAWKEY_F11},
    {Qt::Key_Up, RAWKEY_CRSRUP},            {Qt::Key_Down, RAWKEY_CRSRDOWN},
    {Qt::Key_Right, RAWKEY_CRSRRIGHT},      {Qt::Key_Left, RAWKEY_CRSRLEFT},
    {Qt::Key_F1, RAWKEY_F1},                {Qt::Key_F2, RAWKEY_F1 + 1},
    {Qt::Key_F3, RAWKEY_F1 + 2},            {Qt::Key_F4, RAWKEY_F1 + 3},
    {Qt::Key_F5, RAWKEY_F1 + 4},            {Qt::Key_F6, RAWKEY_F1 + 5},
    {Qt::Key_F7, RAWKEY_F1 + 6},            {Qt::Key_F8, RAWKEY_F1 + 7},
    {Qt::Key_F9, RAWKEY_F1 + 8},            {Qt::Key_F10, RAWKEY_F10},
    {Qt::Key_Help, RAWKEY_HELP},            {Qt::Key_F12, RAWKEY_F12},
    {Qt::Key_Home, RAWKEY_HOME},            {Qt::Key_End, RAWKEY_END},
};

// Keys of the numeric pad that type a character, by that character.
struct PadKey {
    char character;
    uint16_t code;
};

constexpr PadKey kPadKeys[] = {
    {'0', RAWKEY_KP_0},        {'1', RAWKEY_KP_1},        {'2', RAWKEY_KP_2},
    {'3', RAWKEY_KP_3},        {'4', RAWKEY_KP_4},        {'5', RAWKEY_KP_5},
    {'6', RAWKEY_KP_6},        {'7', RAWKEY_KP_7},        {'8', RAWKEY_KP_8},
    {'9', RAWKEY_KP_9},        {'.', RAWKEY_KP_DECIMAL},  {'-', RAWKEY_KP_MINUS},
    {'(', RAWKEY_KP_LPAREN},   {')', RAWKEY_KP_RPAREN},   {'/', RAWKEY_KP_DIVIDE},
    {'*', RAWKEY_KP_MULTIPLY}, {'+', RAWKEY_KP_PLUS},
};

// The character keys of the reference keyboard: raw code, unshifted and
// shifted character.
struct CharacterKey {
    uint16_t code;
    char plain;
    char shifted;
};

constexpr CharacterKey kCharacterKeys[] = {
    {0x00, '`', '~'},  {0x01, '1', '!'}, {0x02, '2', '@'}, {0x03, '3', '#'},
    {0x04, '4', '$'},  {0x05, '5', '%'}, {0x06, '6', '^'}, {0x07, '7', '&'},
    {0x08, '8', '*'},  {0x09, '9', '('}, {0x0A, '0', ')'}, {0x0B, '-', '_'},
    {0x0C, '=', '+'},  {0x0D, '\\', '|'}, {0x10, 'q', 'Q'}, {0x11, 'w', 'W'},
    {0x12, 'e', 'E'},  {0x13, 'r', 'R'}, {0x14, 't', 'T'}, {0x15, 'y', 'Y'},
    {0x16, 'u', 'U'},  {0x17, 'i', 'I'}, {0x18, 'o', 'O'}, {0x19, 'p', 'P'},
    {0x1A, '[', '{'},  {0x1B, ']', '}'}, {0x20, 'a', 'A'}, {0x21, 's', 'S'},
    {0x22, 'd', 'D'},  {0x23, 'f', 'F'}, {0x24, 'g', 'G'}, {0x25, 'h', 'H'},
    {0x26, 'j', 'J'},  {0x27, 'k', 'K'}, {0x28, 'l', 'L'}, {0x29, ';', ':'},
    {0x2A, '\'', '"'}, {0x31, 'z', 'Z'}, {0x32, 'x', 'X'}, {0x33, 'c', 'C'},
    {0x34, 'v', 'V'},  {0x35, 'b', 'B'}, {0x36, 'n', 'N'}, {0x37, 'm', 'M'},
    {0x38, ',', '<'},  {0x39, '.', '>'}, {0x3A, '/', '?'},
};

// A character key that the reference keyboard lacks (a letter of another
// layout): one of its international keys.
constexpr uint16_t kOtherCharacterCode = 0x30;

const FixedKey* FindFixedKey(int qtKey) {
    for (const FixedKey& key : kFixedKeys)
        if (key.qtKey == qtKey) return &key;
    return nullptr;
}

const PadKey* FindPadKey(char character) {
    for (const PadKey& key : kPadKeys)
        if (key.character == character) return &key;
    return nullptr;
}

const CharacterKey* FindCharacterKey(unsigned char character) {
    for (const CharacterKey& key : kCharacterKeys)
        if (key.plain == character || key.shifted == character) return &key;
    return nullptr;
}

std::string ToLatin1(const QString& text) {
    std::string out;
    for (QChar c : text)
        if (c.unicode() <= 0xFF) out.push_back(char(c.unicode()));
    return out;
}

// Case changes that stay within ISO 8859-1.
unsigned char Lower(unsigned char c) {
    const char16_t lower = QChar(char16_t(c)).toLower().unicode();
    return lower <= 0xFF ? (unsigned char)lower : c;
}

unsigned char Upper(unsigned char c) {
    const char16_t upper = QChar(char16_t(c)).toUpper().unicode();
    return upper <= 0xFF ? (unsigned char)upper : c;
}

// The character a printable Qt key stands for: Qt names such keys by the
// character on them (upper case for letters), or 0 when it is not Latin-1.
unsigned char KeyCharacter(int qtKey) {
    if (qtKey <= 0x20 || qtKey > 0xFF) return 0;
    return Lower((unsigned char)qtKey);
}

void SetLayer(KeyChars& keys, int layer, const std::string& text) {
    const size_t length = std::min(text.size(), sizeof keys.Layer[layer] - 1);
    std::memcpy(keys.Layer[layer], text.data(), length);
    keys.Layer[layer][length] = 0;
}

std::string Char(unsigned char c) { return c ? std::string(1, char(c)) : std::string(); }

}  // namespace

uint16_t QualifierFromModifiers(Qt::KeyboardModifiers modifiers) {
    uint16_t qualifier = 0;
    if (modifiers & Qt::ShiftModifier) qualifier |= IEQUALIFIER_LSHIFT;
    if (modifiers & Qt::ControlModifier) qualifier |= IEQUALIFIER_CONTROL;
    if (modifiers & Qt::AltModifier) qualifier |= IEQUALIFIER_LALT;
    if (modifiers & Qt::GroupSwitchModifier) qualifier |= IEQUALIFIER_RALT;
    if (modifiers & Qt::MetaModifier) qualifier |= IEQUALIFIER_LCOMMAND;
    if (modifiers & Qt::KeypadModifier) qualifier |= IEQUALIFIER_NUMERICPAD;
    return qualifier;
}

TranslatedKey TranslateKey(int qtKey, Qt::KeyboardModifiers modifiers, const QString& text,
                           bool autoRepeat) {
    TranslatedKey key;
    key.qualifier = QualifierFromModifiers(modifiers);
    if (autoRepeat) key.qualifier |= IEQUALIFIER_REPEAT;

    if (const FixedKey* fixed = FindFixedKey(qtKey)) {
        key.known = true;
        key.code = fixed->code;
        key.keys = DefaultKeyChars(fixed->code);
        if (qtKey == Qt::Key_Enter) key.qualifier |= IEQUALIFIER_NUMERICPAD;
        return key;
    }

    const unsigned char onKey = KeyCharacter(qtKey);
    std::string typed = ToLatin1(text);
    // A desktop that applied Ctrl typed a control code; the layer keeps the
    // character itself, and KeyToText applies Ctrl again.
    const bool shift = modifiers & Qt::ShiftModifier;
    if (typed.size() == 1 && (unsigned char)typed[0] < 0x20) {
        typed = Char(shift ? Upper(onKey) : onKey);
    }
    if (typed.empty() && text.isEmpty()) typed = Char(shift ? Upper(onKey) : onKey);
    if (typed.empty() && onKey == 0) return key;   // a modifier, or nothing typable
    key.known = true;

    unsigned char plain = onKey;
    if (plain == 0 && typed.size() == 1) plain = Lower((unsigned char)typed[0]);
    unsigned char shifted = Upper(plain);
    if (modifiers & Qt::KeypadModifier) {
        if (const PadKey* padKey = FindPadKey(char(plain))) {
            key.code = padKey->code;
            shifted = plain;
        }
    }
    if (key.code == 0) {
        if (const CharacterKey* place = FindCharacterKey(plain)) {
            key.code = place->code;
            // A shifted symbol names its key by itself: the plain layer is
            // the unshifted character of its place.
            plain = (unsigned char)place->plain;
            shifted = (unsigned char)place->shifted;
        } else {
            key.code = kOtherCharacterCode;
        }
    }

    const int layer = (shift ? 1 : 0) | (key.qualifier & IEQUALIFIER_ALT ? 2 : 0);
    SetLayer(key.keys, 0, Char(plain));
    SetLayer(key.keys, 1, Char(shifted));
    SetLayer(key.keys, 2, Char(plain));
    SetLayer(key.keys, 3, Char(shifted));
    SetLayer(key.keys, layer, typed);
    return key;
}
