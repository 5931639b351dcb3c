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
        {FULLMENUNUM(1, 2, 0), "Deeper", 61, 0},
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
                               FULLMENUNUM(1, 2, 1), FULLMENUNUM(0, NOITEM, NOSUB)})
        EXPECT_EQ(ItemAddress(held.strip, missing), nullptr) << missing;
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
        {"Find/Replace/More/Deeper", FULLMENUNUM(1, 2, 0)},
        {"Find/Replace/More", FULLMENUNUM(1, 2, NOSUB)},
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

    Menu* strip_ = nullptr;
    Window* window_ = nullptr;
};

TEST_F(MenuPickTest, PicksAndHelpReachTheWindowWhileItShowsTheStrip)
{
    ASSERT_TRUE(display.PickMenu("Find/Replace/UPPER=lower", IEQUALIFIER_LSHIFT));
    // Scripts are written in UTF-8.
    ASSERT_TRUE(display.PickMenu("Project/Save\xC2\xA0text", 0, true));
    EXPECT_FALSE(display.PickMenu("Project/Nothing", 0));
    std::vector<IntuiMessage> messages = Drain(window_);
    ASSERT_EQ(messages.size(), 2u);
    EXPECT_EQ(messages[0].Class, IDCMP_MENUPICK);
    EXPECT_EQ(messages[0].Code, 0xF821);
    EXPECT_EQ(messages[0].Qualifier, IEQUALIFIER_LSHIFT);
    EXPECT_TRUE(ItemAddress(strip_, 0xF821)->Flags & CHECKED);
    EXPECT_EQ(messages[1].Class, IDCMP_MENUHELP);
    EXPECT_EQ(messages[1].Code, FULLMENUNUM(0, 0, NOSUB));

    ClearMenuStrip(window_);
    EXPECT_FALSE(display.PickMenu("Project/Quit", 0));
    ModifyIDCMP(window_, IDCMP_RAWKEY);
    ASSERT_TRUE(SetMenuStrip(window_, strip_));
    EXPECT_FALSE(display.PickMenu("Project/Quit", 0)) << "the window's event set refuses picks";
    EXPECT_TRUE(Drain(window_).empty());
}

} // namespace
