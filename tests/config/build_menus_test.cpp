// Strips of texts from the shared table, and the user menus in them.
#include "config/build_menus.h"
#include "config/menu_messages.h"
#include "config/menu_table.h"
#include "config/user_menus.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "platform/exec/memory.h"
#include "services/messages.h"
#include "text/record/create_text_record.h"
#include "text/record/settings.h"
#include "text/record/text_record.h"

#include <gtest/gtest.h>

#include <cstring>
#include <string>
#include <vector>

namespace {

class StripTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        InitSemaphore(&Globals.MenuTableLock);
        ResolveMenuLabels();
    }

    void TearDown() override
    {
        for (TextRecord* record : records_) {
            FreeMenus(record->MenuStrip);
            record->MenuStrip = nullptr;
            FreeTextRecord(record);
        }
        RemoveAllUserMenus();
        SetScriptLabel(0, "");
    }

    TextRecord* Text(uint32_t options, int16_t tabs)
    {
        TextRecord* record = CreateTextRecord(nullptr);
        record->Options = options;
        record->TabSize = tabs;
        records_.push_back(record);
        return record;
    }

    // The labels of the "Macros" menu from the first user menu on.
    static std::vector<std::string> UserLabels(const TextRecord* record)
    {
        std::vector<std::string> labels;
        for (uint16_t item = FirstUserMenuItem;; ++item) {
            const MenuItem* entry = ItemAddress(record->MenuStrip, FULLMENUNUM(MacrosMenu, item, NOSUB));
            if (!entry)
                return labels;
            labels.push_back(entry->Label ? entry->Label : "-");
        }
    }

    std::vector<TextRecord*> records_;
};

TEST_F(StripTest, ChecksAndTabLabelAreEachTextsOwn)
{
    TextRecord* first = Text(InsertMode | SaveTabs | FullName, 8);
    TextRecord* second = Text(IgnoreCase | MakeBackup | SaveIcon, 3);
    ASSERT_NE(BuildMenus(first), nullptr);
    ASSERT_NE(BuildMenus(second), nullptr);
    const struct {
        MenuNumber item;
        bool first, second;
    } rows[] = {
        {InsertModeItem, true, false}, {IgnoreCaseItem, false, true}, {SaveTabsItem, true, false},
        {BackupItem, false, true},     {SaveIconItem, false, true},   {FullNameItem, true, false},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(GetMenuCheck(first, row.item), row.first) << row.item;
        EXPECT_EQ(GetMenuCheck(second, row.item), row.second) << row.item;
    }
    EXPECT_STREQ(ItemAddress(first->MenuStrip, FULLMENUNUM(3, 4, NOSUB))->Label, "Tabulations = 8");
    EXPECT_STREQ(ItemAddress(second->MenuStrip, FULLMENUNUM(3, 4, NOSUB))->Label, "Tabulations = 3");

    // A mark set on one text stays with it through a rebuild of the other
    // and of itself.
    first->Options |= MakeBackup;
    SetMenuCheck(first, BackupItem, true);
    Menu* old = second->MenuStrip;
    BuildMenus(second);
    EXPECT_NE(second->MenuStrip, old);
    BuildMenus(first);
    EXPECT_TRUE(GetMenuCheck(first, BackupItem));
    EXPECT_TRUE(GetMenuCheck(second, BackupItem));
    EXPECT_FALSE(GetMenuCheck(second, FullNameItem));
}

TEST_F(StripTest, ScriptLabelsShowCutToTheirField)
{
    TextRecord* record = Text(0, 8);
    SetScriptLabel(0, "a_very_long_script_name");
    SetScriptLabel(20, "ignored");
    BuildMenus(record);
    const MenuItem* script = ItemAddress(record->MenuStrip, FULLMENUNUM(4, FirstScriptItem, NOSUB));
    EXPECT_STREQ(script->Label, "a_very_long");
    EXPECT_STREQ(Settings.ScriptLabels[0], "a_very_long");
    SetScriptLabel(0, "");
    BuildMenus(record);
    script = ItemAddress(record->MenuStrip, FULLMENUNUM(4, FirstScriptItem, NOSUB));
    EXPECT_STREQ(script->Label, GetString(MessageId{54}));
}

TEST_F(StripTest, UserMenusGoInAtTheirPlace)
{
    TextRecord* record = Text(0, 8);
    char macro[64];
    auto add = [&](const char* label, const char* text, int32_t position) {
        std::strcpy(macro, text);
        return AddUserMenu(label, macro, position);
    };
    EXPECT_EQ(add("", "1", 0), 147);
    EXPECT_EQ(add("Two", "2", 0), 0);
    EXPECT_EQ(add("Three", "3", 1), 0);
    EXPECT_EQ(add("One", "1", 0), 0);
    EXPECT_EQ(add("two", "9", 3), 148) << "labels compare without case";
    EXPECT_EQ(add("Nine", "3", 3), 148) << "so do macros";
    EXPECT_EQ(add("bar", "dropped", 1), 0);
    EXPECT_STREQ(macro, "") << "a separator keeps no macro";
    EXPECT_EQ(add("BAR", "1", 4), 0) << "separators may repeat";
    BuildMenus(record);
    EXPECT_EQ(UserLabels(record), (std::vector<std::string>{"One", "-", "Two", "Three", "-"}));
    const MenuItem* separator = ItemAddress(record->MenuStrip, FULLMENUNUM(MacrosMenu, FirstUserMenuItem + 1, NOSUB));
    EXPECT_EQ(GTMENUITEM_USERDATA(separator), 0u);
    EXPECT_EQ(GTMENUITEM_USERDATA(ItemAddress(record->MenuStrip, FULLMENUNUM(MacrosMenu, FirstUserMenuItem, NOSUB))),
              UserMenuCommand);

    char* copy = CopyUserMacro(3);
    EXPECT_STREQ(copy, "3");
    FreeVec(copy);
    EXPECT_EQ(CopyUserMacro(5), nullptr);

    // A separator given a label shows it and still runs nothing.
    EXPECT_EQ(SetUserMenuLabel(1, "Named"), 0);
    RemoveUserMenu(0);
    BuildMenus(record);
    EXPECT_EQ(UserLabels(record), (std::vector<std::string>{"Named", "Two", "Three", "-"}));
    EXPECT_EQ(GTMENUITEM_USERDATA(ItemAddress(record->MenuStrip, FULLMENUNUM(MacrosMenu, FirstUserMenuItem, NOSUB))),
              0u);

    RemoveAllUserMenus();
    BuildMenus(record);
    EXPECT_TRUE(UserLabels(record).empty());
    EXPECT_EQ(SharedMenuTable(), BuiltInMenus);
}

// Main hands out copies of user macros, but none while a text edits the
// user menus, and copies of script labels that are set.
TEST_F(StripTest, MainHandsOutCopiesOfMacrosAndScriptLabels)
{
    char macro[] = "WRITE(1)";
    ASSERT_EQ(AddUserMenu("Write", macro, 0), 0);
    SetScriptLabel(0, "backup.rexx");
    auto ask = [](void (*handler)(CommandMessage*, int16_t*), intptr_t argument) {
        CommandMessage message;
        message.Argument = argument;
        int16_t code = 0;
        handler(&message, &code);
        return reinterpret_cast<char*>(message.Argument);
    };
    const struct {
        void (*handler)(CommandMessage*, int16_t*);
        int locked;
        intptr_t argument;
        const char* expected;   // null: none given
    } rows[] = {
        {HandleGetUserMacro, 0, 0, "WRITE(1)"},   {HandleGetUserMacro, 1, 0, nullptr},
        {HandleGetUserMacro, 0, 1, nullptr},      {HandleGetUserMacro, 0, -1, nullptr},
        {HandleGetScriptEntry, 0, 0, "backup.rexx"}, {HandleGetScriptEntry, 0, 1, nullptr},
        {HandleGetScriptEntry, 0, 20, nullptr},
    };
    for (const auto& row : rows) {
        Globals.MenusLocked = row.locked;
        char* copy = ask(row.handler, row.argument);
        EXPECT_STREQ(copy, row.expected) << row.argument << " locked " << row.locked;
        FreeVec(copy);
    }
    Globals.MenusLocked = 0;
}

// The menu number holds 63 items, the last number meaning none: 56 user
// menus behind the seven fixed ones. One more and the text keeps the strip
// it had.
TEST_F(StripTest, BeyondTheLastItemNumberTheOldStripStays)
{
    TextRecord* record = Text(0, 8);
    char macro[16];
    for (int i = 0; i < 56; ++i) {
        std::snprintf(macro, sizeof macro, "%d", i);
        ASSERT_EQ(AddUserMenu(("m" + std::to_string(i)).c_str(), macro, i), 0);
    }
    Menu* full = BuildMenus(record);
    ASSERT_NE(full, nullptr);
    EXPECT_EQ(UserLabels(record).size(), 56u);
    std::strcpy(macro, "last");
    ASSERT_EQ(AddUserMenu("one too many", macro, 56), 0);
    EXPECT_EQ(BuildMenus(record), full);
    EXPECT_EQ(UserLabels(record).size(), 56u);
}

} // namespace
