#include "platform/display/keys.h"

#include <array>
#include <cstring>

namespace {

// Plain and shifted characters of the character keys 0x00 to 0x40; a key
// that a US keyboard lacks is empty.
struct CharKey {
    char plain;
    char shifted;
};

constexpr std::array<CharKey, 0x41> kCharKeys = [] {
    std::array<CharKey, 0x41> keys{};
    auto row = [&keys](int first, const char* plain, const char* shifted) {
        for (int i = 0; plain[i]; ++i)
            keys[static_cast<size_t>(first + i)] = {plain[i], shifted[i]};
    };
    row(0x00, "`1234567890-=\\", "~!@#$%^&*()_+|");
    row(0x10, "qwertyuiop[]", "QWERTYUIOP{}");
    row(0x20, "asdfghjkl;'", "ASDFGHJKL:\"");
    row(0x31, "zxcvbnm,./", "ZXCVBNM<>?");
    // The numeric pad: the same character with or without Shift.
    row(0x0F, "0", "0");
    row(0x1D, "123", "123");
    row(0x2D, "456", "456");
    row(0x3C, ".789", ".789");
    row(0x40, " ", " ");
    return keys;
}();

// Keys above the space bar: the console's characters, plain and shifted.
struct SpecialKey {
    uint16_t code;
    const char* plain;
    const char* shifted;
};

constexpr SpecialKey kSpecialKeys[] = {
    {RAWKEY_BACKSPACE, "\x08", "\x08"},
    {RAWKEY_TAB, "\x09", "\x9BZ"},
    {RAWKEY_ENTER, "\x0D", "\x0D"},
    {RAWKEY_RETURN, "\x0D", "\x0D"},
    {RAWKEY_ESC, "\x1B", "\x1B"},
    {RAWKEY_DEL, "\x7F", "\x7F"},
    {RAWKEY_INSERT, "\x9B" "40~", "\x9B" "50~"},
    {RAWKEY_PAGEUP, "\x9B" "41~", "\x9B" "51~"},
    {RAWKEY_PAGEDOWN, "\x9B" "42~", "\x9B" "52~"},
    {RAWKEY_KP_MINUS, "-", "-"},
    {RAWKEY_F11, "\x9B" "20~", "\x9B" "30~"},
    {RAWKEY_CRSRUP, "\x9B" "A", "\x9B" "T"},
    {RAWKEY_CRSRDOWN, "\x9B" "B", "\x9B" "S"},
    {RAWKEY_CRSRRIGHT, "\x9B" "C", "\x9B" " @"},
    {RAWKEY_CRSRLEFT, "\x9B" "D", "\x9B" " A"},
    {RAWKEY_KP_LPAREN, "(", "("},
    {RAWKEY_KP_RPAREN, ")", ")"},
    {RAWKEY_KP_DIVIDE, "/", "/"},
    {RAWKEY_KP_MULTIPLY, "*", "*"},
    {RAWKEY_KP_PLUS, "+", "+"},
    {RAWKEY_HELP, "\x9B?~", "\x9B?~"},
    {RAWKEY_F12, "\x9B" "21~", "\x9B" "31~"},
    {RAWKEY_HOME, "\x9B" "44~", "\x9B" "54~"},
    {RAWKEY_END, "\x9B" "45~", "\x9B" "55~"},
};

void SetLayers(KeyChars* keys, const char* plain, const char* shifted)
{
    for (int layer = 0; layer < 4; ++layer) {
        const char* text = (layer & 1) ? shifted : plain;
        std::strncpy(keys->Layer[layer], text, sizeof keys->Layer[layer] - 1);
    }
}

bool IsControlable(unsigned char c)
{
    return (c >= '@' && c <= '_') || (c >= 'a' && c <= 'z');
}

// Caps Lock shifts letters only, ISO 8859-1 letters among them.
unsigned char CapsLocked(unsigned char c)
{
    if (c >= 'a' && c <= 'z')
        return static_cast<unsigned char>(c - 'a' + 'A');
    if (c >= 0xE0 && c <= 0xFE && c != 0xF7)
        return static_cast<unsigned char>(c - 0x20);
    return c;
}

} // namespace

KeyChars DefaultKeyChars(uint16_t rawCode)
{
    KeyChars keys;
    if (rawCode < kCharKeys.size()) {
        const CharKey& key = kCharKeys[rawCode];
        if (key.plain) {
            const char plain[2] = {key.plain, 0};
            const char shifted[2] = {key.shifted, 0};
            SetLayers(&keys, plain, shifted);
        }
        return keys;
    }
    if (rawCode >= RAWKEY_F1 && rawCode <= RAWKEY_F10) {
        const char digit = static_cast<char>('0' + rawCode - RAWKEY_F1);
        const char plain[] = {'\x9B', digit, '~', 0};
        const char shifted[] = {'\x9B', '1', digit, '~', 0};
        SetLayers(&keys, plain, shifted);
        return keys;
    }
    for (const SpecialKey& key : kSpecialKeys) {
        if (key.code == rawCode)
            SetLayers(&keys, key.plain, key.shifted);
    }
    return keys;
}

KeyStroke StrokeForChar(unsigned char character)
{
    KeyStroke stroke;
    switch (character) {
    case '\t':
        stroke.Code = RAWKEY_TAB;
        break;
    case '\n':
    case '\r':
        stroke.Code = RAWKEY_RETURN;
        break;
    case 0x08:
        stroke.Code = RAWKEY_BACKSPACE;
        break;
    case 0x1B:
        stroke.Code = RAWKEY_ESC;
        break;
    case 0x7F:
        stroke.Code = RAWKEY_DEL;
        break;
    default: {
        // The main keys come before the numeric pad, which repeats digits.
        for (uint16_t code = 0; code < kCharKeys.size(); ++code) {
            const CharKey& key = kCharKeys[code];
            bool pad = code == 0x0F || (code >= 0x10 && (code & 0x0F) >= 0x0C);
            if (pad || !key.plain)
                continue;
            if (static_cast<unsigned char>(key.plain) == character) {
                stroke.Code = code;
                stroke.Keys = DefaultKeyChars(code);
                return stroke;
            }
            if (static_cast<unsigned char>(key.shifted) == character) {
                stroke.Code = code;
                stroke.Qualifier = IEQUALIFIER_LSHIFT;
                stroke.Keys = DefaultKeyChars(code);
                return stroke;
            }
        }
        stroke.Code = 0x30;
        const char text[2] = {static_cast<char>(character), 0};
        SetLayers(&stroke.Keys, text, text);
        return stroke;
    }
    }
    stroke.Keys = DefaultKeyChars(stroke.Code);
    return stroke;
}

int KeyToText(const IntuiMessage* message, char* buffer, int size, int qualifier)
{
    if (!buffer || size < 1)
        return 0;
    buffer[0] = 0;
    if (!message || message->Class != IDCMP_RAWKEY || (message->Code & IECODE_UP_PREFIX))
        return 0;
    uint16_t held = qualifier < 0 ? message->Qualifier : static_cast<uint16_t>(qualifier);
    int layer = ((held & IEQUALIFIER_SHIFT) ? 1 : 0) | ((held & IEQUALIFIER_ALT) ? 2 : 0);
    const char* text = message->Keys.Layer[layer];
    size_t length = strnlen(text, sizeof message->Keys.Layer[layer]);
    int count = 0;
    for (size_t i = 0; i < length && count < size - 1; ++i) {
        auto c = static_cast<unsigned char>(text[i]);
        if (held & IEQUALIFIER_CAPSLOCK)
            c = CapsLocked(c);
        if ((held & IEQUALIFIER_CONTROL) && length == 1 && IsControlable(c))
            c = static_cast<unsigned char>(c & 0x1F);
        buffer[count++] = static_cast<char>(c);
    }
    buffer[count] = 0;
    return count;
}
