// Requesters in the running program: each text asks in its own process,
// and a question in one text leaves the others working.
#include "../running_program.h"

#include "files/close_changes.h"
#include "requesters/close_question.h"

#include <sys/mount.h>
#include <unistd.h>

namespace {

class RequesterProgramTest : public RunningProgram {
protected:
    void SetUp() override
    {
        RunningProgram::SetUp();
        SetCloseQuestion(AskAboutChanges);
    }

    void TearDown() override
    {
        EndProgram();
        SetCloseQuestion(nullptr);
        if (mounted_)
            ::umount2(Path("full").c_str(), MNT_DETACH);
        RemoveDirectory();
    }

    void Activate(TextRecord* text)
    {
        WaitForRest();
        ASSERT_TRUE(display_.Activate(text->Window));
    }

    void Key(const std::string& name)
    {
        WaitForRest();
        std::string error;
        ASSERT_TRUE(display_.PressKey(name, &error)) << error;
    }

    void Press(const std::string& label)
    {
        WaitForRest();
        std::string error;
        ASSERT_TRUE(display_.PressRequesterButton(label, &error)) << error;
    }

    std::vector<std::string> Shown()
    {
        WaitForRest();
        RequesterWindow* front = display_.FrontRequester();
        return front ? display_.RequesterLines(front) : std::vector<std::string>{"none"};
    }

    bool mounted_ = false;
};

TEST_F(RequesterProgramTest, AQuestionInOneTextLeavesAnotherFullyUsable)
{
    Write(Path("a.txt"), "one\n");
    Write(Path("b.txt"), "two\n");
    Start({Path("a.txt"), Path("b.txt")});
    std::vector<TextRecord*> texts = Texts();
    ASSERT_EQ(texts.size(), 2u);

    Activate(texts[0]);
    ASSERT_TRUE(display_.Type("x"));
    Key("Ctrl+q");
    ASSERT_EQ(Shown()[0], "requester: a.txt");

    // While text 1 waits for its answer, text 2 is edited and saved.
    Activate(texts[1]);
    EXPECT_EQ(Shown()[0], "none") << "text 1's question is not in front of text 2";
    ASSERT_TRUE(display_.Type("y"));
    Key("Ctrl+q");
    EXPECT_EQ(Shown()[0], "requester: b.txt");
    Press("Save");
    EXPECT_EQ(Shown(), (std::vector<std::string>{"requester: Saving text", "drawer: " + directory_, "file: b.txt",
                                                 "save", "[Accept]", "[Cancel]"}));
    Press("Accept");
    EXPECT_EQ(Shown()[1], "|File allready exists");
    Press("Yes");
    WaitForRest();
    EXPECT_EQ(Read(Path("b.txt")), "ytwo\n");
    ASSERT_EQ(Texts().size(), 1u) << "text 2 closed after its save";

    // Text 1's question is still up, and its answer still counts.
    Activate(texts[0]);
    EXPECT_EQ(Shown()[0], "requester: a.txt");
    Press("Cancel");
    EXPECT_EQ(Shown()[0], "none");
    EXPECT_TRUE(texts[0]->Modified);
    EXPECT_EQ(Read(Path("a.txt")), "one\n");
}

TEST_F(RequesterProgramTest, TheTextBehindARequesterBeepsAtItsCloseGadgetAndFollowsANewSize)
{
    Start({});
    std::vector<TextRecord*> texts = Texts();
    Activate(texts[0]);
    ASSERT_TRUE(display_.Type("x"));
    Key("Ctrl+q");
    ASSERT_EQ(Shown()[0], "requester: NoName");
    int beeps = display_.BeepCount();
    ASSERT_TRUE(display_.PressCloseGadget());
    WaitForRest();
    EXPECT_EQ(display_.BeepCount(), beeps + 1);
    EXPECT_EQ(Shown()[0], "requester: NoName") << "the question is still up";
    // The window behind still follows a new size.
    int32_t rows = texts[0]->VisibleRows;
    ASSERT_TRUE(display_.Resize(640, 120));
    WaitForRest();
    EXPECT_LT(texts[0]->VisibleRows, rows);
    Press("Continue");
    WaitForRest();
    EXPECT_TRUE(ended_.load()) << "the only text closed, and with it the program";
}

// A disk that can't take the save: a full small file system where one can
// be mounted, else a directory without write permission.
bool MakeUnwritable(const std::string& path, bool* mounted)
{
    std::filesystem::create_directory(path);
    if (::geteuid() == 0) {
        if (::mount("tavrel-test", path.c_str(), "tmpfs", 0, "size=64k") != 0)
            return false;
        *mounted = true;
        std::ofstream(path + "/a.txt", std::ios::binary) << "old\n";
        std::ofstream filler(path + "/filler", std::ios::binary);
        std::string block(4096, 'f');
        for (int i = 0; i < 64 && filler; ++i)
            filler.write(block.data(), static_cast<std::streamsize>(block.size())).flush();
        return true;
    }
    std::ofstream(path + "/a.txt", std::ios::binary) << "old\n";
    std::filesystem::permissions(path, std::filesystem::perms::owner_read | std::filesystem::perms::owner_exec);
    return true;
}

TEST_F(RequesterProgramTest, AFailedSaveShowsTheDosErrorAndKeepsFileAndChanges)
{
    std::string full = Path("full");
    if (!MakeUnwritable(full, &mounted_))
        GTEST_SKIP() << "no way to make an unwritable disk here";
    Start({full + "/a.txt"});
    std::vector<TextRecord*> texts = Texts();
    Activate(texts[0]);
    ASSERT_TRUE(display_.Type(std::string(200, 'n')));
    Key("Ctrl+q");
    Press("Save");
    Press("Accept");
    Press("Yes");   // overwrite the file
    std::vector<std::string> shown = Shown();
    ASSERT_EQ(shown.size(), 5u);
    EXPECT_EQ(shown[2], "|DOS error");
    EXPECT_EQ(shown[4], "[OK !]");
    Press("OK !");
    EXPECT_EQ(Shown()[0], "none");
    EXPECT_EQ(Texts().size(), 1u) << "the text stays open";
    EXPECT_TRUE(texts[0]->Modified);
    EXPECT_EQ(Read(full + "/a.txt"), "old\n");
}

} // namespace
