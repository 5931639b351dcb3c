// Menus picked in the running program on the headless display, as a user
// picks them: the main process on a task, the test thread the display.
#include "config/build_menus.h"
#include "config/menu_table.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/idle.h"
#include "frame/process/main_process.h"
#include "frame/protocol/send.h"
#include "platform/display/headless/headless_display.h"
#include "platform/exec/tasks.h"
#include "text/record/text_record.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>
#include <thread>
#include <vector>

namespace {

namespace fs = std::filesystem;

class MenuProgramTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        directory_ = fs::temp_directory_path() / ("tavrel-menus-" + std::to_string(::getpid()));
        fs::create_directories(directory_);
    }

    void TearDown() override
    {
        if (started_ && !ended_.load())
            PostCommand(Globals.MainPort, nullptr, CMD_CLOSE_TEXT | CMD_FREE, -1);
        WaitForAllTasks();
        CollectReplies();
        SetDisplayBackend(nullptr);
        fs::remove_all(directory_);
    }

    std::string File(const char* name, const char* content)
    {
        std::string path = (directory_ / name).string();
        std::ofstream(path, std::ios::binary) << content;
        return path;
    }

    static std::string Read(const std::string& path)
    {
        std::ifstream in(path, std::ios::binary);
        std::stringstream text;
        text << in.rdbuf();
        return text.str();
    }

    void Start(std::vector<std::string> files)
    {
        SetDisplayBackend(&display_);
        started_ = true;
        CreateNewProc("Tavrel", [this, files] {
            MainProcess(files);
            ended_.store(true);
        });
        Rest();
    }

    void Rest()
    {
        while (!ended_.load() && !ProgramIsIdle())
            std::this_thread::sleep_for(std::chrono::microseconds(50));
    }

    std::vector<TextRecord*> Texts()
    {
        std::vector<TextRecord*> texts;
        for (TextRecord* text = Globals.Texts.First; text; text = text->NextText)
            texts.push_back(text);
        return texts;
    }

    void Activate(TextRecord* text)
    {
        ASSERT_TRUE(display_.Activate(text->Window));
        Rest();
    }

    void Pick(const char* path)
    {
        ASSERT_TRUE(display_.PickMenu(path, 0)) << path;
        Rest();
    }

    void Key(const char* name)
    {
        std::string error;
        ASSERT_TRUE(display_.PressKey(name, &error)) << name << error;
        Rest();
    }

    std::string Title(TextRecord* text) { return display_.Title(text->Window); }

    HeadlessDisplay display_;
    fs::path directory_;
    bool started_ = false;
    std::atomic<bool> ended_{false};
};

TEST_F(MenuProgramTest, SaveTextFromTheMenuAndItsShortcut)
{
    std::string path = File("saved.txt", "one\n");
    Start({path});
    TextRecord* text = Texts().at(0);
    Key("End");
    display_.Type(" two");
    Rest();
    Pick("Project/Save text");
    EXPECT_EQ(Read(path), "one two\n");
    EXPECT_EQ(Title(text).find("(modified)"), std::string::npos) << Title(text);

    display_.Type("!");
    Rest();
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
    EXPECT_EQ(Title(texts[0]).find(directory_.string()), std::string::npos);
    EXPECT_NE(Title(texts[1]).find(directory_.string()), std::string::npos);

    // Every strip is made anew, as after a change of the user menus.
    ASSERT_TRUE(SendToMain(texts[1], CMD_MENUS_CHANGED, 0));
    Rest();
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
