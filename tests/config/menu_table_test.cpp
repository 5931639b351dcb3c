// The built-in menu table and the command table, as the user sees them.
#include "config/menu_commands.h"
#include "config/menu_table.h"
#include "services/messages.h"

#include <gtest/gtest.h>

#include <cstring>
#include <map>
#include <string>

namespace {

class MenuTableTest : public ::testing::Test {
protected:
    void SetUp() override { ResolveMenuLabels(); }
};

TEST_F(MenuTableTest, EveryCommandOnceAndScriptsTwentyTimes)
{
    std::map<uint32_t, int> uses;
    int titles = 0;
    for (int row = 0; row < FixedMenuRows; ++row) {
        const NewMenu& entry = BuiltInMenus[row];
        if (entry.nm_Type == NM_TITLE)
            ++titles;
        else if (entry.nm_Label != NM_BARLABEL)
            ++uses[entry.nm_UserData];
    }
    EXPECT_EQ(BuiltInMenus[FixedMenuRows].nm_Type, NM_END);
    EXPECT_EQ(titles, 6);
    for (uint32_t id = 1; id <= 53; ++id)
        EXPECT_EQ(uses[id], id == ScriptCommand ? ScriptItemCount : 1) << "command " << id;
    EXPECT_EQ(uses.count(0), 0u) << "every labelled item runs a command";
    EXPECT_EQ(uses.count(UserMenuCommand), 0u);
}

// Each command is named for help by its item's own label.
TEST_F(MenuTableTest, HelpOfEachCommandIsItsLabel)
{
    for (int row = 0; row < FixedMenuRows; ++row) {
        const NewMenu& entry = BuiltInMenus[row];
        if (entry.nm_Type != NM_ITEM || entry.nm_Label == NM_BARLABEL)
            continue;
        ASSERT_LT(entry.nm_UserData, static_cast<uint32_t>(MenuCommandCount));
        const MenuCommand& command = MenuCommandTable[entry.nm_UserData];
        EXPECT_STREQ(GetString(command.Help), entry.nm_Label) << "row " << row;
        EXPECT_EQ(command.Quits, entry.nm_UserData == QuitCommand) << "row " << row;
    }
}

TEST_F(MenuTableTest, ShortcutsAsTheUserKnowsThem)
{
    const std::map<uint32_t, char> expected = {
        {1, 'O'},  {2, 'E'},  {3, 'S'},  {4, 'A'},  {5, '='},  {8, 'I'},  {9, '$'},
        {12, 'P'}, {13, 'K'}, {14, '.'}, {15, '?'}, {16, 'Q'}, {17, 'C'}, {18, 'V'},
        {19, 'X'}, {20, 'W'}, {21, '\t'}, {22, '\b'}, {23, 'H'}, {24, 'L'}, {25, 'Y'},
        {27, 'U'}, {28, ':'}, {29, 'F'}, {30, 'B'}, {31, 'N'}, {32, 'J'}, {33, 'Z'},
        {34, 'R'}, {36, '\xF9'}, {37, 'G'}, {47, '['}, {48, ']'}, {39, ','}, {38, ';'},
    };
    std::map<uint32_t, char> found;
    std::string scriptKeys;
    for (int row = 0; row < FixedMenuRows; ++row) {
        const NewMenu& entry = BuiltInMenus[row];
        if (!entry.nm_CommKey)
            continue;
        ASSERT_EQ(std::strlen(entry.nm_CommKey), 1u) << "row " << row;
        if (entry.nm_UserData == ScriptCommand)
            scriptKeys += entry.nm_CommKey[0];
        else
            found[entry.nm_UserData] = entry.nm_CommKey[0];
    }
    EXPECT_EQ(found, expected);
    EXPECT_EQ(scriptKeys, "0123456789");
    EXPECT_EQ(BuiltInMenus[FirstScriptRow].nm_CommKey, std::string("0"));
}

TEST_F(MenuTableTest, NamedItemsDecodeToTheirRows)
{
    Menu* strip = CreateMenus(BuiltInMenus);
    ASSERT_NE(strip, nullptr);
    const struct {
        MenuNumber number;
        int label;
        uint32_t id;
    } rows[] = {
        {InsertModeItem, 34, 28}, {IgnoreCaseItem, 42, 36}, {SaveTabsItem, 44, 41},
        {BackupItem, 45, 42},     {SaveIconItem, 46, 43},   {FullNameItem, 47, 44},
        {FULLMENUNUM(4, FirstScriptItem, NOSUB), 54, ScriptCommand},
        {FULLMENUNUM(3, 4, NOSUB), 48, 45},
    };
    for (const auto& row : rows) {
        const MenuItem* item = ItemAddress(strip, row.number);
        ASSERT_NE(item, nullptr) << row.number;
        EXPECT_STREQ(item->Label, GetString(MessageId{row.label})) << row.number;
        EXPECT_EQ(GTMENUITEM_USERDATA(item), row.id) << row.number;
        EXPECT_EQ((item->Flags & CHECKIT) != 0, (row.label >= 42 && row.label <= 47) || row.label == 34);
    }
    EXPECT_STREQ(BuiltInMenus[TabLabelRow].nm_Label, GetString(MessageId{48}));
    FreeMenus(strip);
}

} // namespace
