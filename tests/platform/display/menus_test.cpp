// Menu strips from tables, their numbers, and picks by label on the
// headless display.
#include "platform/display/headless/menu_labels.h"
#include "platform/display/menus.h"
#include "headless_fixture.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

NewMenu Title(const char* label)
{
    return {NM_TITLE, label, nullptr, 0, 0, 0};
}

NewMenu Item(const char* label, uint32_t id, uint16_t flags = 0, const char* key = nullptr)
{
    return {NM_ITEM, label, key, flags, 0, id};
}

NewMenu Sub(const char* label, uint32_t id)
{
    return {NM_SUB, label, nullptr, 0, 0, id};
}

const std::vector<NewMenu> Sample = {
    Title("Project"),
    Item("Save\xA0text", 3, 0, "S"),
    Item(NM_BARLABEL, 0),
    Item("Quit", 16, 0, "Q"),
    Title("Find/Replace"),
    Item("Find\xA0next", 31),
    Item("UPPER=lower", 36, CHECKIT | MENUTOGGLE),
    Item("Mark", 60, CHECKIT),
    Item("More", 0),
    Sub("Deeper", 61),
    {},
};

struct StripHolder {
    Menu* strip;
    explicit StripHolder(const std::vector<NewMenu>& table) : strip(CreateMenus(table.data())) {}
    ~StripHolder() { FreeMenus(strip); }
};

TEST(MenuStrip, NumbersFindTheirItems)
{
    StripHolder held(Sample);
    ASSERT_NE(held.strip, nullptr);
    struct {
        MenuNumber number;
        const char* label;   // null: a separator
        uint32_t id;
        char key;
    } rows[] = {
        {FULLMENUNUM(0, 0, NOSUB), "Save\xA0text", 3, 'S'},
        {FULLMENUNUM(0, 1, NOSUB), nullptr, 0, 0},
        {FULLMENUNUM(0, 2, NOSUB), "Quit", 16, 'Q'},
        {0xF821, "UPPER=lower", 36, 0},
        {FULLMENUNUM(1, 3, 0), "Deeper", 61, 0},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.number);
        const MenuItem* item = ItemAddress(held.strip, row.number);
        ASSERT_NE(item, nullptr);
        EXPECT_STREQ(item->Label, row.label);
        EXPECT_EQ(GTMENUITEM_USERDATA(item), row.id);
        EXPECT_EQ(item->Command, row.key);
    }
    for (MenuNumber missing : {MENUNULL, FULLMENUNUM(2, 0, NOSUB), FULLMENUNUM(0, 3, NOSUB),
                               FULLMENUNUM(1, 3, 1), FULLMENUNUM(0, NOITEM, NOSUB)})
        EXPECT_EQ(ItemAddress(held.strip, missing), nullptr) << missing;
}

TEST(MenuStrip, DecodesPackedNumbers)
{
    EXPECT_EQ(FULLMENUNUM(3, 0, NOSUB), 0xF803);
    EXPECT_EQ(FULLMENUNUM(1, 14, NOSUB), 0xF9C1);
    for (MenuNumber number : {0xF803, 0xF9C1, 0xF942, 0x0FE5}) {
        EXPECT_EQ(FULLMENUNUM(MENUNUM(number), ITEMNUM(number), SUBNUM(number)), number);
    }
    EXPECT_EQ(MENUNUM(0xF942), 2);
    EXPECT_EQ(ITEMNUM(0xF942), 10);
    EXPECT_EQ(SUBNUM(0xF942), NOSUB);
}

TEST(MenuStrip, RefusesTablesTheNumberCannotHold)
{
    std::vector<NewMenu> items = {Title("Many")};
    for (int i = 0; i < 63; ++i)
        items.push_back(Item("x", 1));
    items.push_back({});
    StripHolder full(items);
    EXPECT_NE(full.strip, nullptr) << "63 items fit";
    items.insert(items.end() - 1, Item("one too many", 1));
    StripHolder over(items);
    EXPECT_EQ(over.strip, nullptr);

    StripHolder orphan({Item("no title", 1), {}});
    EXPECT_EQ(orphan.strip, nullptr);
    StripHolder orphanSub({Title("T"), Sub("no item", 1), {}});
    EXPECT_EQ(orphanSub.strip, nullptr);
}

TEST(MenuLabels, FindItemsAsTheUserNamesThem)
{
    StripHolder held(Sample);
    struct {
        const char* path;
        MenuNumber expected;   // MENUNULL: not found
    } rows[] = {
        {"Project/Save text", FULLMENUNUM(0, 0, NOSUB)},
        {"project/SAVE TEXT", FULLMENUNUM(0, 0, NOSUB)},
        {"Find/Replace/Find next", FULLMENUNUM(1, 0, NOSUB)},
        {"Find/Replace/More/Deeper", FULLMENUNUM(1, 3, 0)},
        {"Find/Replace/More", FULLMENUNUM(1, 3, NOSUB)},
        {"Project/Savetext", MENUNULL},
        {"Project", MENUNULL},
        {"Find/Find next", MENUNULL},
        {"Project/Quit/", MENUNULL},
    };
    for (const auto& row : rows) {
        MenuNumber number = MENUNULL;
        bool found = FindMenuNumber(held.strip, row.path, &number);
        EXPECT_EQ(found, row.expected != MENUNULL) << row.path;
        if (found) {
            EXPECT_EQ(number, row.expected) << row.path;
        }
    }
}

class MenuPickTest : public HeadlessTest {
protected:
    void SetUp() override
    {
        HeadlessTest::SetUp();
        strip_ = CreateMenus(Sample.data());
        window_ = OpenTextWindow();
        ASSERT_TRUE(SetMenuStrip(window_, strip_));
        Drain(window_);
    }

    void TearDown() override
    {
        if (window_)
            ClearMenuStrip(window_);
        HeadlessTest::TearDown();
        FreeMenus(strip_);
    }

    IntuiMessage OnlyMessage()
    {
        std::vector<IntuiMessage> messages = Drain(window_);
        EXPECT_EQ(messages.size(), 1u);
        return messages.empty() ? IntuiMessage{} : messages[0];
    }

    Menu* strip_ = nullptr;
    Window* window_ = nullptr;
};

TEST_F(MenuPickTest, PickPostsTheNumberWithItsQualifiers)
{
    ASSERT_TRUE(display.PickMenu("Project/Quit", IEQUALIFIER_LSHIFT));
    IntuiMessage pick = OnlyMessage();
    EXPECT_EQ(pick.Class, IDCMP_MENUPICK);
    EXPECT_EQ(pick.Code, FULLMENUNUM(0, 2, NOSUB));
    EXPECT_EQ(pick.Qualifier, IEQUALIFIER_LSHIFT);
    EXPECT_EQ(ItemAddress(strip_, pick.Code)->NextSelect, MENUNULL);

    // Scripts are written in UTF-8.
    ASSERT_TRUE(display.PickMenu("Project/Save\xC2\xA0text", 0, true));
    IntuiMessage help = OnlyMessage();
    EXPECT_EQ(help.Class, IDCMP_MENUHELP);
    EXPECT_EQ(help.Code, FULLMENUNUM(0, 0, NOSUB));
}

TEST_F(MenuPickTest, PickSetsOrTurnsTheCheckMark)
{
    const MenuItem* toggle = ItemAddress(strip_, 0xF821);
    const MenuItem* mark = ItemAddress(strip_, FULLMENUNUM(1, 2, NOSUB));
    for (bool expected : {true, false, true}) {
        ASSERT_TRUE(display.PickMenu("Find/Replace/UPPER=lower", 0));
        EXPECT_EQ((toggle->Flags & CHECKED) != 0, expected);
    }
    for (int i = 0; i < 2; ++i) {
        ASSERT_TRUE(display.PickMenu("Find/Replace/Mark", 0));
        EXPECT_TRUE(mark->Flags & CHECKED) << "without MENUTOGGLE a pick only sets";
    }
    Drain(window_);
}

TEST_F(MenuPickTest, NoPickWithoutAStripOrSuchItem)
{
    EXPECT_FALSE(display.PickMenu("Project/Nothing", 0));
    EXPECT_FALSE(display.PickMenu("Project/", 0)) << "a separator has no label";
    ClearMenuStrip(window_);
    EXPECT_FALSE(display.PickMenu("Project/Quit", 0));
    ModifyIDCMP(window_, IDCMP_RAWKEY);
    ASSERT_TRUE(SetMenuStrip(window_, strip_));
    EXPECT_FALSE(display.PickMenu("Project/Quit", 0)) << "the window's event set refuses picks";
    EXPECT_TRUE(Drain(window_).empty());
}

} // namespace
