// Menus picked in the running program on the headless display, as a user
// picks them: the main process on a task, the test thread the display.
#include "../running_program.h"

#include "config/build_menus.h"
#include "config/menu_table.h"

namespace {

class MenuProgramTest : public RunningProgram {
protected:
    std::string File(const char* name, const char* content)
    {
        const std::string path = Path(name);
        Write(path, content);
        return path;
    }

    void Activate(TextRecord* text)
    {
        ASSERT_TRUE(display_.Activate(text->Window));
        WaitForRest();
    }

    void Pick(const char* path)
    {
        ASSERT_TRUE(display_.PickMenu(path, 0)) << path;
        WaitForRest();
    }

    void Key(const char* name)
    {
        std::string error;
        ASSERT_TRUE(display_.PressKey(name, &error)) << name << error;
        WaitForRest();
    }

    std::string Title(TextRecord* text) { return display_.Title(text->Window); }
};

TEST_F(MenuProgramTest, SaveTextFromTheMenuAndItsShortcut)
{
    std::string path = File("saved.txt", "one\n");
    Start({path});
    TextRecord* text = Texts().at(0);
    Key("End");
    display_.Type(" two");
    WaitForRest();
    Pick("Project/Save text");
    EXPECT_EQ(Read(path), "one two\n");
    EXPECT_EQ(Title(text).find("(modified)"), std::string::npos) << Title(text);

    display_.Type("!");
    WaitForRest();
    Key("Ctrl+s");
    EXPECT_EQ(Read(path), "one two!\n");
    EXPECT_EQ(Title(text).find("(modified)"), std::string::npos) << Title(text);
}

TEST_F(MenuProgramTest, TogglesAndTheirMarksBelongToOneText)
{
    Start({File("a.txt", "alpha\n"), File("b.txt", "beta\n")});
    std::vector<TextRecord*> texts = Texts();
    ASSERT_EQ(texts.size(), 2u);
    Activate(texts[0]);
    Pick("Preferences/Backup text");
    Pick("Preferences/Full name");
    Pick("Edition/Insert mode");
    Pick("Find/Replace/UPPER=lower");
    const struct {
        MenuNumber item;
        uint32_t bit;
        bool first;
    } rows[] = {
        {BackupItem, MakeBackup, true},
        {FullNameItem, FullName, false},
        {InsertModeItem, InsertMode, false},
        {IgnoreCaseItem, IgnoreCase, true},
    };
    auto check = [&](const char* when) {
        for (const auto& row : rows) {
            EXPECT_EQ(GetMenuCheck(texts[0], row.item), row.first) << when << row.item;
            EXPECT_EQ((texts[0]->Options & row.bit) != 0, row.first) << when << row.item;
            EXPECT_EQ(GetMenuCheck(texts[1], row.item), !row.first) << when << row.item;
            EXPECT_EQ((texts[1]->Options & row.bit) != 0, !row.first) << when << row.item;
        }
    };
    check("after the picks ");
    EXPECT_EQ(Title(texts[0]).find(directory_), std::string::npos);
    EXPECT_NE(Title(texts[1]).find(directory_), std::string::npos);

    // Every strip is made anew, as after a change of the user menus.
    ASSERT_TRUE(SendToMain(texts[1], CMD_MENUS_CHANGED, 0));
    WaitForRest();
    check("after a rebuild ");
}

TEST_F(MenuProgramTest, QuitEndsEveryText)
{
    Start({File("a.txt", "a\n"), File("b.txt", "b\n")});
    Pick("Project/Quit");
    while (!ended_.load())
        std::this_thread::sleep_for(std::chrono::microseconds(50));
    EXPECT_TRUE(display_.Windows().empty());
}

} // namespace
