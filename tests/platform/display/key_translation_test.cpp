// Key names to raw codes and qualifiers, and raw keys to characters.
#include "platform/display/keys.h"

#include <gtest/gtest.h>

#include <string>

namespace {

std::string Convert(const KeyStroke& stroke, int qualifier = -1)
{
    IntuiMessage message;
    message.Class = IDCMP_RAWKEY;
    message.Code = stroke.Code;
    message.Qualifier = stroke.Qualifier;
    message.Keys = stroke.Keys;
    char buffer[16];
    int count = KeyToText(&message, buffer, sizeof buffer, qualifier);
    return std::string(buffer, static_cast<size_t>(count));
}

KeyStroke Parse(const std::string& name)
{
    KeyStroke stroke;
    std::string error;
    EXPECT_TRUE(ParseKeyStroke(name, &stroke, &error)) << name << ": " << error;
    return stroke;
}

// The keys of the editor's key tables, with the console's characters.
struct TableKey {
    const char* name;
    uint16_t code;
    const char* plain;
    const char* shifted;
};

const TableKey kTableKeys[] = {
    {"Backspace", 0x41, "\x08", "\x08"},
    {"Tab", 0x42, "\x09", "\x9BZ"},
    {"Return", 0x44, "\r", "\r"},
    {"Esc", 0x45, "\x1B", "\x1B"},
    {"Del", 0x46, "\x7F", "\x7F"},
    {"Insert", 0x47, "\x9B" "40~", "\x9B" "50~"},
    {"PageUp", 0x48, "\x9B" "41~", "\x9B" "51~"},
    {"PageDown", 0x49, "\x9B" "42~", "\x9B" "52~"},
    {"F11", 0x4B, "\x9B" "20~", "\x9B" "30~"},
    {"Up", 0x4C, "\x9B" "A", "\x9B" "T"},
    {"Down", 0x4D, "\x9B" "B", "\x9B" "S"},
    {"Right", 0x4E, "\x9B" "C", "\x9B" " @"},
    {"Left", 0x4F, "\x9B" "D", "\x9B" " A"},
    {"F1", 0x50, "\x9B" "0~", "\x9B" "10~"},
    {"F5", 0x54, "\x9B" "4~", "\x9B" "14~"},
    {"F10", 0x59, "\x9B" "9~", "\x9B" "19~"},
    {"Help", 0x5F, "\x9B?~", "\x9B?~"},
    {"F12", 0x6F, "\x9B" "21~", "\x9B" "31~"},
    {"Home", 0x70, "\x9B" "44~", "\x9B" "54~"},
    {"End", 0x71, "\x9B" "45~", "\x9B" "55~"},
};

struct QualifierGroup {
    const char* prefix;
    uint16_t bits;
};

// Each group of the tables, and Ctrl as the further switch inside Alt and
// Shift.
const QualifierGroup kGroups[] = {
    {"", 0},
    {"Shift+", IEQUALIFIER_LSHIFT},
    {"Ctrl+", IEQUALIFIER_CONTROL},
    {"Alt+", IEQUALIFIER_LALT},
    {"Alt+Shift+", IEQUALIFIER_LALT | IEQUALIFIER_LSHIFT},
    {"Alt+Ctrl+", IEQUALIFIER_LALT | IEQUALIFIER_CONTROL},
    {"Shift+Ctrl+", IEQUALIFIER_LSHIFT | IEQUALIFIER_CONTROL},
    {"Amiga+", IEQUALIFIER_LCOMMAND},
};

TEST(KeyTranslation, TableKeysWithEveryQualifierGroup)
{
    EXPECT_EQ(RawKeyName(0x20), nullptr) << "a printable key has no table name";
    for (const TableKey& key : kTableKeys) {
        EXPECT_STREQ(RawKeyName(key.code), key.name);
        for (const QualifierGroup& group : kGroups) {
            std::string name = std::string(group.prefix) + key.name;
            SCOPED_TRACE(name);
            KeyStroke stroke = Parse(name);
            EXPECT_EQ(stroke.Code, key.code);
            EXPECT_EQ(stroke.Qualifier, group.bits);
            // Ctrl changes single letters only, never these keys.
            bool shifted = group.bits & IEQUALIFIER_LSHIFT;
            EXPECT_EQ(Convert(stroke), shifted ? key.shifted : key.plain);
        }
    }
}

struct PrintableCase {
    const char* name;
    uint16_t code;
    uint16_t qualifier;
    const char* text;
};

TEST(KeyTranslation, PrintableKeysWithAndWithoutQualifiers)
{
    const PrintableCase cases[] = {
        {"a", 0x20, 0, "a"},
        {"A", 0x20, IEQUALIFIER_LSHIFT, "A"},
        {"Shift+a", 0x20, IEQUALIFIER_LSHIFT, "A"},
        {"Ctrl+q", 0x10, IEQUALIFIER_CONTROL, "\x11"},
        {"Ctrl+Q", 0x10, IEQUALIFIER_CONTROL | IEQUALIFIER_LSHIFT, "\x11"},
        {"Ctrl+[", 0x1A, IEQUALIFIER_CONTROL, "\x1B"},
        {"Ctrl+1", 0x01, IEQUALIFIER_CONTROL, "1"},
        {"Alt+x", 0x32, IEQUALIFIER_LALT, "x"},
        {"!", 0x01, IEQUALIFIER_LSHIFT, "!"},
        {"=", 0x0C, 0, "="},
        {"+", 0x0C, IEQUALIFIER_LSHIFT, "+"},
        {"Ctrl++", 0x0C, IEQUALIFIER_CONTROL | IEQUALIFIER_LSHIFT, "+"},
        {"Space", 0x40, 0, " "},
        {" ", 0x40, 0, " "},
        {"Num+3", 0x1F, IEQUALIFIER_NUMERICPAD, "3"},
        {"Alt+Num+3", 0x1F, IEQUALIFIER_LALT | IEQUALIFIER_NUMERICPAD, "3"},
        {"Num++", 0x5E, IEQUALIFIER_NUMERICPAD, "+"},
        {"Enter", 0x43, IEQUALIFIER_NUMERICPAD, "\r"},
        {"Shift+Enter", 0x43, IEQUALIFIER_NUMERICPAD | IEQUALIFIER_LSHIFT, "\r"},
        {"ctrl+ALT+esc", 0x45, IEQUALIFIER_CONTROL | IEQUALIFIER_LALT, "\x1B"},
        {"\xE9", 0x30, 0, "\xE9"},
        {"\xC3\xA9", 0x30, 0, "\xE9"},
        {"Shift+\xC2\xA3", 0x30, IEQUALIFIER_LSHIFT, "\xA3"},
    };
    for (const PrintableCase& c : cases) {
        SCOPED_TRACE(c.name);
        KeyStroke stroke = Parse(c.name);
        EXPECT_EQ(stroke.Code, c.code);
        EXPECT_EQ(stroke.Qualifier, c.qualifier);
        EXPECT_EQ(Convert(stroke), c.text);
    }
}

TEST(KeyTranslation, ConversionUnderAnotherQualifier)
{
    // The character path converts a key once without its qualifiers.
    KeyStroke ctrlQ = Parse("Ctrl+Shift+q");
    EXPECT_EQ(Convert(ctrlQ, 0), "q");
    EXPECT_EQ(Convert(ctrlQ, IEQUALIFIER_RSHIFT), "Q");
    EXPECT_EQ(Convert(Parse("Ctrl+Backspace")), "\x08");
    EXPECT_EQ(Convert(Parse("a"), IEQUALIFIER_CAPSLOCK), "A");
    EXPECT_EQ(Convert(Parse("1"), IEQUALIFIER_CAPSLOCK), "1");
    EXPECT_EQ(Convert(Parse("\xE9"), IEQUALIFIER_CAPSLOCK), "\xC9");
}

TEST(KeyTranslation, EveryAsciiCharacterTypesBackToItself)
{
    for (int c = 0x20; c < 0x7F; ++c) {
        SCOPED_TRACE(c);
        KeyStroke stroke = StrokeForChar(static_cast<unsigned char>(c));
        EXPECT_LT(stroke.Code, 0x41);
        EXPECT_NE(stroke.Code, 0x30) << "no key of its own";
        EXPECT_EQ(Convert(stroke), std::string(1, static_cast<char>(c)));
    }
    EXPECT_EQ(StrokeForChar('\t').Code, 0x42);
    EXPECT_EQ(StrokeForChar('\n').Code, 0x44);
}

TEST(KeyTranslation, MessagesThatGiveNoCharacters)
{
    char buffer[8] = "x";
    IntuiMessage message;
    message.Class = IDCMP_RAWKEY;
    message.Code = 0x20;
    message.Keys = DefaultKeyChars(0x20);
    message.Code |= IECODE_UP_PREFIX;
    EXPECT_EQ(KeyToText(&message, buffer, sizeof buffer), 0);
    EXPECT_STREQ(buffer, "");
    message.Code = 0x20;
    message.Class = IDCMP_MOUSEBUTTONS;
    EXPECT_EQ(KeyToText(&message, buffer, sizeof buffer), 0);
    message.Class = IDCMP_RAWKEY;
    for (uint16_t silent : {RAWKEY_WHEEL_UP, RAWKEY_WHEEL_DOWN, RAWKEY_LSHIFT, RAWKEY_CONTROL}) {
        message.Code = silent;
        message.Keys = DefaultKeyChars(silent);
        EXPECT_EQ(KeyToText(&message, buffer, sizeof buffer), 0) << silent;
    }
    // A small buffer takes what fits and stays terminated.
    message.Code = RAWKEY_F12;
    message.Keys = DefaultKeyChars(RAWKEY_F12);
    EXPECT_EQ(KeyToText(&message, buffer, 3), 2);
    EXPECT_STREQ(buffer, "\x9B" "2");
}

TEST(KeyTranslation, BadNamesAreRefusedWithAMessage)
{
    for (const char* name : {"", "Foo", "Shift+", "+Shift", "Hyper+a", "Ctrl+Foo", "Num+x", "Shift++a",
                             "\x01", "ab"}) {
        SCOPED_TRACE(name);
        KeyStroke stroke;
        stroke.Code = 0x99;
        std::string error;
        EXPECT_FALSE(ParseKeyStroke(name, &stroke, &error));
        EXPECT_FALSE(error.empty());
        EXPECT_EQ(stroke.Code, 0x99) << "untouched on failure";
    }
}

} // namespace
