#include "platform/display/keys.h"

#include <strings.h>

#include <string_view>

namespace {

struct NamedKey {
    const char* name;
    uint16_t code;
    uint16_t qualifier;   // what the key itself sets (the pad's Enter)
};

constexpr NamedKey kNamedKeys[] = {
    {"Return", RAWKEY_RETURN, 0},
    {"Enter", RAWKEY_ENTER, IEQUALIFIER_NUMERICPAD},
    {"Tab", RAWKEY_TAB, 0},
    {"Backspace", RAWKEY_BACKSPACE, 0},
    {"Del", RAWKEY_DEL, 0},
    {"Esc", RAWKEY_ESC, 0},
    {"Insert", RAWKEY_INSERT, 0},
    {"Help", RAWKEY_HELP, 0},
    {"PageUp", RAWKEY_PAGEUP, 0},
    {"PageDown", RAWKEY_PAGEDOWN, 0},
    {"Up", RAWKEY_CRSRUP, 0},
    {"Down", RAWKEY_CRSRDOWN, 0},
    {"Left", RAWKEY_CRSRLEFT, 0},
    {"Right", RAWKEY_CRSRRIGHT, 0},
    {"Home", RAWKEY_HOME, 0},
    {"End", RAWKEY_END, 0},
    {"F1", RAWKEY_F1, 0},
    {"F2", RAWKEY_F1 + 1, 0},
    {"F3", RAWKEY_F1 + 2, 0},
    {"F4", RAWKEY_F1 + 3, 0},
    {"F5", RAWKEY_F1 + 4, 0},
    {"F6", RAWKEY_F1 + 5, 0},
    {"F7", RAWKEY_F1 + 6, 0},
    {"F8", RAWKEY_F1 + 7, 0},
    {"F9", RAWKEY_F1 + 8, 0},
    {"F10", RAWKEY_F10, 0},
    {"F11", RAWKEY_F11, 0},
    {"F12", RAWKEY_F12, 0},
    {"Space", RAWKEY_SPACE, 0},
};

struct Qualifier {
    const char* name;
    uint16_t bits;
};

constexpr Qualifier kQualifiers[] = {
    {"Shift", IEQUALIFIER_LSHIFT},
    {"Ctrl", IEQUALIFIER_CONTROL},
    {"Alt", IEQUALIFIER_LALT},
    {"Amiga", IEQUALIFIER_LCOMMAND},
    {"Num", IEQUALIFIER_NUMERICPAD},
};

// The numeric pad's keys by the character they give.
struct PadKey {
    char character;
    uint16_t code;
};

constexpr PadKey kPadKeys[] = {
    {'0', RAWKEY_KP_0}, {'1', RAWKEY_KP_1}, {'2', RAWKEY_KP_2}, {'3', RAWKEY_KP_3},
    {'4', RAWKEY_KP_4}, {'5', RAWKEY_KP_5}, {'6', RAWKEY_KP_6}, {'7', RAWKEY_KP_7},
    {'8', RAWKEY_KP_8}, {'9', RAWKEY_KP_9}, {'.', RAWKEY_KP_DECIMAL}, {'-', RAWKEY_KP_MINUS},
    {'+', RAWKEY_KP_PLUS}, {'*', RAWKEY_KP_MULTIPLY}, {'/', RAWKEY_KP_DIVIDE},
    {'(', RAWKEY_KP_LPAREN}, {')', RAWKEY_KP_RPAREN},
};

bool SameName(std::string_view text, const char* name)
{
    return text.size() == std::char_traits<char>::length(name) &&
           strncasecmp(text.data(), name, text.size()) == 0;
}

// One ISO 8859-1 character: a byte, or the UTF-8 form of 0x80 to 0xFF.
// -1 when the text is not one character.
int SingleCharacter(std::string_view text)
{
    if (text.size() == 1)
        return static_cast<unsigned char>(text[0]);
    if (text.size() == 2) {
        auto lead = static_cast<unsigned char>(text[0]);
        auto trail = static_cast<unsigned char>(text[1]);
        if ((lead == 0xC2 || lead == 0xC3) && (trail & 0xC0) == 0x80)
            return ((lead & 0x03) << 6) | (trail & 0x3F);
    }
    return -1;
}

bool Fail(std::string* error, const std::string& message)
{
    if (error)
        *error = message;
    return false;
}

} // namespace

bool ParseKeyStroke(const std::string& name, KeyStroke* stroke, std::string* error)
{
    if (name.empty())
        return Fail(error, "empty key name");
    // The key is the last part; a name ending in "+" names the plus key.
    std::string_view all(name);
    size_t split = all.rfind('+');
    if (all == "+")
        split = std::string_view::npos;
    else if (all.size() > 2 && all.ends_with("++"))
        split = all.size() - 2;
    std::string_view key = split == std::string_view::npos ? all : all.substr(split + 1);
    std::string_view qualifiers = split == std::string_view::npos ? std::string_view() : all.substr(0, split);
    if (key.empty() || (split != std::string_view::npos && qualifiers.empty()))
        return Fail(error, "bad key name '" + name + "'");

    uint16_t held = 0;
    while (!qualifiers.empty()) {
        size_t plus = qualifiers.find('+');
        std::string_view word = qualifiers.substr(0, plus);
        const Qualifier* found = nullptr;
        for (const Qualifier& qualifier : kQualifiers) {
            if (SameName(word, qualifier.name))
                found = &qualifier;
        }
        if (!found)
            return Fail(error, "unknown qualifier '" + std::string(word) + "' in key '" + name + "'");
        held |= found->bits;
        qualifiers = plus == std::string_view::npos ? std::string_view() : qualifiers.substr(plus + 1);
        if (plus != std::string_view::npos && qualifiers.empty())
            return Fail(error, "bad key name '" + name + "'");
    }

    KeyStroke result;
    int character = SingleCharacter(key);
    if (character >= 0) {
        if (character < 0x20 || character == 0x7F)
            return Fail(error, "unknown key name '" + name + "'");
        if (held & IEQUALIFIER_NUMERICPAD) {
            const PadKey* pad = nullptr;
            for (const PadKey& padKey : kPadKeys) {
                if (padKey.character == character)
                    pad = &padKey;
            }
            if (!pad)
                return Fail(error, "no key '" + std::string(key) + "' on the numeric pad");
            result.Code = pad->code;
            result.Keys = DefaultKeyChars(pad->code);
        } else {
            result = StrokeForChar(static_cast<unsigned char>(character));
        }
    } else {
        const NamedKey* found = nullptr;
        for (const NamedKey& named : kNamedKeys) {
            if (SameName(key, named.name))
                found = &named;
        }
        if (!found)
            return Fail(error, "unknown key name '" + name + "'");
        result.Code = found->code;
        result.Qualifier = found->qualifier;
        result.Keys = DefaultKeyChars(found->code);
    }
    result.Qualifier |= held;
    if (stroke)
        *stroke = result;
    return true;
}

const char* RawKeyName(uint16_t rawCode)
{
    for (const NamedKey& named : kNamedKeys) {
        if (named.code == rawCode)
            return named.name;
    }
    return nullptr;
}
