#include "platform/display/qt/key_translation.h"

#include "platform/display/input_codes.h"
#include "platform/display/keys.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>

namespace {

// The characters of the key as the program reads them: -1 with the key's
// own qualifier.
std::string Typed(const TranslatedKey& key, int qualifier = -1) {
    IntuiMessage message;
    message.Class = IDCMP_RAWKEY;
    message.Code = key.code;
    message.Qualifier = key.qualifier;
    message.Keys = key.keys;
    char buffer[16];
    return std::string(buffer, KeyToText(&message, buffer, sizeof buffer, qualifier));
}

struct QualifierGroup {
    const char* name;
    Qt::KeyboardModifiers modifiers;
    uint16_t qualifier;
};

const QualifierGroup kGroups[] = {
    {"none", Qt::NoModifier, 0},
    {"Shift", Qt::ShiftModifier, IEQUALIFIER_LSHIFT},
    {"Ctrl", Qt::ControlModifier, IEQUALIFIER_CONTROL},
    {"Alt", Qt::AltModifier, IEQUALIFIER_LALT},
    {"Ctrl+Alt", Qt::ControlModifier | Qt::AltModifier, IEQUALIFIER_CONTROL | IEQUALIFIER_LALT},
    {"AltGr", Qt::GroupSwitchModifier, IEQUALIFIER_RALT},
    {"Meta", Qt::MetaModifier, IEQUALIFIER_LCOMMAND},
};

struct TableKey {
    int qtKey;
    uint16_t code;
};

// The keys of the editor's fixed key tables; of the function keys the
// ends of the run and the two outside it.
const TableKey kTableKeys[] = {
    {Qt::Key_Backspace, 0x41}, {Qt::Key_Tab, 0x42},      {Qt::Key_Return, 0x44},
    {Qt::Key_Escape, 0x45},    {Qt::Key_Delete, 0x46},   {Qt::Key_Insert, 0x47},
    {Qt::Key_PageUp, 0x48},    {Qt::Key_PageDown, 0x49}, {Qt::Key_Up, 0x4C},
    {Qt::Key_Down, 0x4D},      {Qt::Key_Right, 0x4E},    {Qt::Key_Left, 0x4F},
    {Qt::Key_F1, 0x50},        {Qt::Key_F10, 0x59},      {Qt::Key_F11, 0x4B},
    {Qt::Key_F12, 0x6F},
    {Qt::Key_Help, 0x5F},      {Qt::Key_Home, 0x70},     {Qt::Key_End, 0x71},
};

TEST(QtKeyTranslation, TableKeysKeepTheirCodeUnderEveryQualifierGroup) {
    for (const TableKey& key : kTableKeys) {
        for (const QualifierGroup& group : kGroups) {
            const TranslatedKey got = TranslateKey(key.qtKey, group.modifiers, QString(), false);
            SCOPED_TRACE(testing::Message() << "Qt key 0x" << std::hex << key.qtKey << " with "
                                            << group.name);
            EXPECT_TRUE(got.known);
            EXPECT_EQ(got.code, key.code);
            EXPECT_EQ(got.qualifier, group.qualifier);
            const KeyChars layout = DefaultKeyChars(key.code);
            EXPECT_EQ(std::memcmp(&got.keys, &layout, sizeof layout), 0)
                << "characters differ from the default layout's";
        }
    }
}

TEST(QtKeyTranslation, NumericPadAndShiftTab) {
    const TranslatedKey enter = TranslateKey(Qt::Key_Enter, Qt::KeypadModifier, "\r", false);
    EXPECT_EQ(enter.code, RAWKEY_ENTER);
    EXPECT_EQ(enter.qualifier, IEQUALIFIER_NUMERICPAD);
    EXPECT_EQ(Typed(enter), "\r");
    // Some desktops report Enter without the pad modifier.
    EXPECT_EQ(TranslateKey(Qt::Key_Enter, Qt::NoModifier, "\r", false).qualifier,
              IEQUALIFIER_NUMERICPAD);

    const TranslatedKey padHome = TranslateKey(Qt::Key_Home, Qt::KeypadModifier, "", false);
    EXPECT_EQ(padHome.code, RAWKEY_HOME);
    EXPECT_EQ(padHome.qualifier, IEQUALIFIER_NUMERICPAD);

    const TranslatedKey backTab = TranslateKey(Qt::Key_Backtab, Qt::ShiftModifier, "", false);
    EXPECT_EQ(backTab.code, RAWKEY_TAB);
    EXPECT_EQ(backTab.qualifier, IEQUALIFIER_LSHIFT);
    EXPECT_EQ(Typed(backTab, 0), "\t");
}

struct PrintableRow {
    const char* name;
    int qtKey;
    Qt::KeyboardModifiers modifiers;
    QString text;
    uint16_t code;
    uint16_t qualifier;
    std::string expectText;
    std::string expectPlain;
};

TEST(QtKeyTranslation, PrintableKeysWithAndWithoutQualifiers) {
    const Qt::KeyboardModifiers none = Qt::NoModifier;
    const PrintableRow rows[] = {
        {"a", Qt::Key_A, none, "a", 0x20, 0, "a", "a"},
        {"Shift+a", Qt::Key_A, Qt::ShiftModifier, "A", 0x20, 0x01, "A", "a"},
        {"Shift+1 is ! on the 1 key", Qt::Key_Exclam, Qt::ShiftModifier, "!", 0x01, 0x01, "!", "1"},
        {"slash", Qt::Key_Slash, none, "/", 0x3A, 0, "/", "/"},
        {"space", Qt::Key_Space, none, " ", 0x40, 0, " ", " "},
        {"Alt+x keeps the layout's character", Qt::Key_X, Qt::AltModifier, "x", 0x32, 0x10, "x", "x"},
        {"Ctrl+q as the desktop converts it", Qt::Key_Q, Qt::ControlModifier, "\x11", 0x10, 0x08,
         "\x11", "q"},
        {"Ctrl+q with the letter", Qt::Key_Q, Qt::ControlModifier, "q", 0x10, 0x08, "\x11", "q"},
        {"Ctrl+q with no text", Qt::Key_Q, Qt::ControlModifier, "", 0x10, 0x08, "\x11", "q"},
        {"Ctrl+Shift+q", Qt::Key_Q, Qt::ControlModifier | Qt::ShiftModifier, "Q", 0x10, 0x09,
         "\x11", "q"},
        {"Ctrl+digit stays a digit", Qt::Key_5, Qt::ControlModifier, "5", 0x05, 0x08, "5", "5"},
        {"pad 5", Qt::Key_5, Qt::KeypadModifier, "5", 0x2E, 0x100, "5", "5"},
        {"Alt+pad 3", Qt::Key_3, Qt::AltModifier | Qt::KeypadModifier, "3", 0x1F, 0x110, "3", "3"},
        {"pad plus", Qt::Key_Plus, Qt::KeypadModifier, "+", 0x5E, 0x100, "+", "+"},
        {"AltGr @ of another layout", Qt::Key_At, Qt::GroupSwitchModifier, "@", 0x02, 0x20, "@", "2"},
        {"Latin-1 letter", Qt::Key_Eacute, none, QString(QChar(0xE9)), 0x30, 0, "\xe9", "\xe9"},
        {"Shift+Latin-1 letter", Qt::Key_Eacute, Qt::ShiftModifier, QString(QChar(0xC9)), 0x30,
         0x01, "\xc9", "\xe9"},
        {"dead text beyond Latin-1 is dropped", Qt::Key_E, Qt::AltModifier, QString(QChar(0x20AC)),
         0x12, 0x10, "", "e"},
    };
    for (const PrintableRow& row : rows) {
        SCOPED_TRACE(row.name);
        const TranslatedKey got = TranslateKey(row.qtKey, row.modifiers, row.text, false);
        EXPECT_TRUE(got.known);
        EXPECT_EQ(got.code, row.code);
        EXPECT_EQ(got.qualifier, row.qualifier);
        EXPECT_EQ(Typed(got), row.expectText);
        EXPECT_EQ(Typed(got, 0), row.expectPlain);
    }
}

TEST(QtKeyTranslation, KeysWithoutCharacterOrPlaceAreUnknown) {
    const int keys[] = {Qt::Key_Shift, Qt::Key_Control, Qt::Key_Alt, Qt::Key_Meta,
                        Qt::Key_CapsLock, Qt::Key_VolumeUp, Qt::Key_Print};
    for (int key : keys) EXPECT_FALSE(TranslateKey(key, Qt::NoModifier, "", false).known) << key;
    // A character outside ISO 8859-1 on a key of its own types nothing.
    EXPECT_FALSE(TranslateKey(0x20AC, Qt::NoModifier, QString(QChar(0x20AC)), false).known);
}

}  // namespace
