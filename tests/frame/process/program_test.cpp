// The whole program on the headless display: the main process on a task,
// texts started and ended through the same messages and window events as
// in use. The test thread is the display side.
#include "../frame_test_support.h"
#include "frame/protocol/app_globals.h"
#include "requesters/close_question.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/idle.h"
#include "frame/process/main_process.h"
#include "frame/protocol/send.h"
#include "platform/display/headless/headless_display.h"
#include "platform/exec/memory.h"
#include "platform/exec/tasks.h"
#include "text/record/create_text_record.h"
#include "text/record/text_record.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <atomic>
#include <chrono>
#include <random>
#include <thread>
#include <new>
#include <vector>

namespace {

class ProgramTest : public ::testing::Test {
protected:
    void SetUp() override
    {
        SetDisplayBackend(&display_);
        CreateNewProc("Tavrel", [this] {
            status_.store(MainProcess({}));
            ended_.store(true);
        });
        WaitForRest();
    }

    void TearDown() override
    {
        if (!ended_.load())
            PostCommand(Globals.MainPort, nullptr, CMD_CLOSE_TEXT | CMD_FREE, -1);
        WaitForAllTasks();
        CollectReplies();
        SetDisplayBackend(nullptr);
        SetCloseQuestion(nullptr);
    }

    void WaitForRest()
    {
        while (!ended_.load() && !ProgramIsIdle())
            std::this_thread::sleep_for(std::chrono::microseconds(50));
    }

    void WaitForEnd()
    {
        while (!ended_.load())
            std::this_thread::sleep_for(std::chrono::microseconds(50));
    }

    void StartTexts(int count)
    {
        for (int i = 0; i < count; ++i)
            ASSERT_TRUE(PostCommand(Globals.MainPort, nullptr, CMD_NEW_TEXT | CMD_FREE, 0));
        WaitForRest();
    }

    // Read while the program rests, so nothing changes underneath.
    std::vector<TextRecord*> Texts()
    {
        std::vector<TextRecord*> texts;
        for (TextRecord* text = Globals.Texts.First; text; text = text->NextText)
            texts.push_back(text);
        return texts;
    }

    void CloseByGadget(TextRecord* text)
    {
        ASSERT_TRUE(display_.Activate(text->Window));
        ASSERT_TRUE(display_.PressCloseGadget());
    }

    HeadlessDisplay display_;
    std::atomic<bool> ended_{false};
    std::atomic<int> status_{-1};
};

TEST_F(ProgramTest, StartsWithOneEmptyTextInAWindow)
{
    ASSERT_EQ(Globals.TextCount.load(), 1);
    ASSERT_EQ(display_.Windows().size(), 1u);
    Window* window = display_.Windows()[0];
    std::string title = display_.Title(window);
    EXPECT_NE(title.find("NoName ($20 1-1/1)"), std::string::npos) << title;
    EXPECT_EQ(display_.ScreenLocks(), 1);
}

enum class Order { FirstToLast, LastToFirst, Shuffled, AllAtOnce, WithoutWaiting };

class FiftyTexts : public ProgramTest, public ::testing::WithParamInterface<Order> {};

TEST_P(FiftyTexts, EndInAnyOrderAndTheProgramEnds)
{
    StartTexts(49);
    std::vector<TextRecord*> texts = Texts();
    ASSERT_EQ(texts.size(), 50u);
    ASSERT_EQ(Globals.TextCount.load(), 50);
    ASSERT_EQ(display_.Windows().size(), 50u);

    switch (GetParam()) {
    case Order::FirstToLast:
        break;
    case Order::LastToFirst:
        std::reverse(texts.begin(), texts.end());
        break;
    case Order::Shuffled:
    case Order::WithoutWaiting:
        std::shuffle(texts.begin(), texts.end(), std::mt19937(50));
        break;
    case Order::AllAtOnce:
        PostCommand(Globals.MainPort, nullptr, CMD_CLOSE_TEXT | CMD_FREE, -1);
        texts.clear();
        break;
    }
    long expected = Globals.TextCount.load();
    for (TextRecord* text : texts) {
        if (GetParam() == Order::WithoutWaiting) {
            SendToText(text, CMD_CLOSE_NOW, 0);
            continue;
        }
        CloseByGadget(text);
        WaitForRest();
        if (--expected > 0) {
            EXPECT_EQ(Globals.TextCount.load(), expected);
            EXPECT_EQ(static_cast<long>(display_.Windows().size()), expected);
        }
    }
    WaitForEnd();
    WaitForAllTasks();
    EXPECT_EQ(status_.load(), 0);
    EXPECT_EQ(Globals.TextCount.load(), 0);
    EXPECT_TRUE(display_.Windows().empty());
    EXPECT_EQ(display_.ScreenLocks(), 0) << "the screen is given back";
}

INSTANTIATE_TEST_SUITE_P(Orders, FiftyTexts,
                         ::testing::Values(Order::FirstToLast, Order::LastToFirst, Order::Shuffled,
                                           Order::AllAtOnce, Order::WithoutWaiting));

std::atomic<int> QuestionsAsked{0};

TEST_F(ProgramTest, QuitKeepsTheModifiedTextThatCancels)
{
    StartTexts(1);
    std::vector<TextRecord*> texts = Texts();
    ASSERT_EQ(texts.size(), 2u);
    TextRecord* modified = texts[1];
    // Written while the text rests; the message below orders it before the
    // text's next look.
    modified->Modified = 1;
    modified->EditLine[0] = 'x';
    modified->EditLength = 1;
    QuestionsAsked.store(0);
    SetCloseQuestion([](TextRecord*) {
        QuestionsAsked.fetch_add(1);
        return false;
    });

    // The text the Quit was picked in has just ended: it was counted, and
    // its last message is CMD_QUIT_ALL.
    Globals.TextCount.fetch_add(1);
    auto* last = static_cast<CommandMessage*>(AllocVec(sizeof(CommandMessage), MEMF_CLEAR));
    new (last) CommandMessage{};
    last->Code = CMD_QUIT_ALL;
    PutMsg(Globals.MainPort, &last->cm_Message);
    WaitForRest();

    EXPECT_FALSE(ended_.load()) << "the program goes on with the modified text";
    EXPECT_EQ(Globals.TextCount.load(), 1);
    ASSERT_EQ(Texts(), std::vector<TextRecord*>{modified});
    EXPECT_EQ(QuestionsAsked.load(), 1);
    EXPECT_EQ(display_.Windows().size(), 1u);

    // Now the user lets the changes go.
    SetCloseQuestion([](TextRecord*) { return true; });
    CloseByGadget(modified);
    WaitForEnd();
    EXPECT_EQ(status_.load(), 0);
}

TEST_F(ProgramTest, GotoBookmarkSentByItsOwnerCompletes)
{
    // The test thread plays a text of its own: it registers, sets a
    // bookmark and asks main to go there, waiting for the answer.
    TextRecord* owner = CreateTextRecord(nullptr);
    owner->MainPort = Globals.MainPort;
    owner->ReplyPort = FindTask(nullptr)->pr_MsgPort;
    SendToMainWait(owner, CMD_ADD_TEXT, reinterpret_cast<intptr_t>(owner));
    Bookmark mark{3, 4, ReturnBookmarkSlot, owner};
    SendToMainWait(owner, CMD_SET_BOOKMARK, reinterpret_cast<intptr_t>(&mark));

    EXPECT_EQ(SendToMainWait(owner, CMD_GOTO_BOOKMARK, ReturnBookmarkSlot), 1);
    TakenOrder order = TakeOrder(owner);
    EXPECT_EQ(order.code, CMD_GOTO_BOOKMARK);
    EXPECT_EQ(order.argument, 3);
    EXPECT_EQ(order.spare, 4);

    SendToMainWait(owner, CMD_DROP_BOOKMARKS, 0);
    EXPECT_EQ(SendToMainWait(owner, CMD_GOTO_BOOKMARK, ReturnBookmarkSlot), 0);
    SendToMainWait(owner, CMD_REMOVE_TEXT, reinterpret_cast<intptr_t>(owner));
    FreeTextRecord(owner);
}

TEST_F(ProgramTest, TwentyTextsWithInputEndToEnd)
{
    StartTexts(19);
    std::vector<TextRecord*> texts = Texts();
    ASSERT_EQ(texts.size(), 20u);
    for (TextRecord* text : texts) {
        ASSERT_TRUE(display_.Activate(text->Window));
        display_.Tick(2);
        display_.Click(3, 2, 0);
        display_.PressKey("a", nullptr);
    }
    WaitForRest();
    for (size_t i = 0; i < texts.size(); i += 2)
        CloseByGadget(texts[i]);
    // A close gadget and a close order served in one pass ask first, and a
    // modified text that is not let go stays; so the gadgets are served
    // before the order goes out.
    WaitForRest();
    PostCommand(Globals.MainPort, nullptr, CMD_CLOSE_TEXT | CMD_FREE, -1);
    WaitForEnd();
    EXPECT_EQ(Globals.TextCount.load(), 0);
}

} // namespace
