// Main's handlers driven one message at a time from the test thread, which
// plays the main process; the texts are records with real ports.
#include "config/key_map.h"
#include "frame/process/dispatch.h"
#include "frame/protocol/send.h"
#include "frame/protocol/text_name_list.h"
#include "../frame_test_support.h"
#include "platform/exec/memory.h"

#include <gtest/gtest.h>

#include <new>

namespace {

class DispatchTest : public ::testing::Test {
protected:
    void SetUp() override { ResetAppGlobals(); }
    void TearDown() override
    {
        while (TextRecord* text = Globals.Texts.First) {
            RemoveText(&Globals.Texts, text);
            TakeCommands(text);
            FreeTextRecord(text);
        }
    }

    // A synchronous request as a text would send it; the reply lands at
    // the test thread's own port, since the test dispatches it itself.
    intptr_t Request(TextRecord* sender, int16_t code, intptr_t argument)
    {
        auto* message = new (AllocVec(sizeof(CommandMessage), MEMF_CLEAR)) CommandMessage{};
        message->Code = static_cast<int16_t>(code | CMD_REPLY);
        message->Argument = argument;
        message->Sender = sender;
        message->cm_Message.mn_ReplyPort = replies_;
        DispatchCommand(message);
        Message* reply = GetMsg(replies_);
        EXPECT_EQ(reply, &message->cm_Message) << "no reply to code " << code;
        intptr_t result = message->Argument;
        FreeVec(message);
        return result;
    }

    void Post(TextRecord* sender, int16_t code, intptr_t argument)
    {
        auto* message = new (AllocVec(sizeof(CommandMessage), MEMF_CLEAR)) CommandMessage{};
        message->Code = code;
        message->Argument = argument;
        message->Sender = sender;
        DispatchCommand(message);
    }

    MsgPort* replies_ = FindTask(nullptr)->pr_MsgPort;
};

TEST_F(DispatchTest, SelectTextByPosition)
{
    TextRecord* first = AddFakeText("/d", "one");
    TextRecord* busy = AddFakeText("/d", "two");
    busy->TextState |= Busy;

    struct Case {
        intptr_t position;
        intptr_t result;
    } cases[] = {{0, 242}, {3, 242}, {1000, 242}, {-1, 242}, {2, 241}, {1, 0}};
    for (const Case& c : cases)
        EXPECT_EQ(Request(first, CMD_SELECT_TEXT, c.position), c.result) << "position " << c.position;
    // Only the free text was told to show itself, once.
    EXPECT_EQ(TakeCommands(first), std::vector<int>{CMD_SHOW_TEXT});
    EXPECT_TRUE(TakeCommands(busy).empty());
}

TEST_F(DispatchTest, GotoBookmarkDeliversOnlyToALiveOwner)
{
    TextRecord* owner = AddFakeText("/d", "a");
    TextRecord* other = AddFakeText("/d", "b");
    Bookmark mark{7, 3, 4, owner};
    Request(owner, CMD_SET_BOOKMARK, reinterpret_cast<intptr_t>(&mark));

    EXPECT_EQ(Request(other, CMD_GOTO_BOOKMARK, 5), 0) << "empty slot";
    EXPECT_EQ(Request(other, CMD_GOTO_BOOKMARK, 13), 0) << "slot out of range";
    EXPECT_EQ(Request(other, CMD_GOTO_BOOKMARK, 4), 1);
    // The slot changes before the owner reads its order: the order keeps
    // the position it was sent with.
    Bookmark moved{9, 1, 4, owner};
    Request(owner, CMD_SET_BOOKMARK, reinterpret_cast<intptr_t>(&moved));
    TakenOrder order = TakeOrder(owner);
    EXPECT_EQ(order.code, CMD_GOTO_BOOKMARK);
    EXPECT_EQ(order.argument, 7);
    EXPECT_EQ(order.spare, 3);
    EXPECT_TRUE(TakeCommands(owner).empty());

    // The owner closed the normal way: its bookmarks went with it.
    Request(owner, CMD_DROP_BOOKMARKS, 0);
    EXPECT_EQ(Request(other, CMD_GOTO_BOOKMARK, 4), 0);

    // An owner that vanished without dropping them: the list walk catches it.
    Request(owner, CMD_SET_BOOKMARK, reinterpret_cast<intptr_t>(&mark));
    Request(owner, CMD_REMOVE_TEXT, reinterpret_cast<intptr_t>(owner));
    EXPECT_EQ(Request(other, CMD_GOTO_BOOKMARK, 4), 0);
    FreeTextRecord(owner);
    EXPECT_TRUE(TakeCommands(other).empty());
}

TEST_F(DispatchTest, BookmarksFollowLineChangesOfTheirOwnerOnly)
{
    TextRecord* owner = AddFakeText("/d", "a");
    TextRecord* other = AddFakeText("/d", "b");
    owner->LineCount = 10;
    Bookmark marks[] = {{2, 0, 0, owner}, {5, 0, 1, owner}, {9, 0, 2, owner}, {5, 0, 3, other}};
    for (Bookmark& mark : marks)
        Request(mark.Owner, CMD_SET_BOOKMARK, reinterpret_cast<intptr_t>(&mark));

    int32_t shift[2] = {5, 3};   // three lines inserted before line 5
    Request(owner, CMD_SHIFT_BOOKMARKS, reinterpret_cast<intptr_t>(shift));
    EXPECT_EQ(Globals.Bookmarks[0].Line, 2);
    EXPECT_EQ(Globals.Bookmarks[1].Line, 8);
    EXPECT_EQ(Globals.Bookmarks[2].Line, 9) << "clamped to the last line";
    EXPECT_EQ(Globals.Bookmarks[3].Line, 5) << "another text's bookmark";

    Request(owner, CMD_DROP_LINE_BOOKMARKS, 8);
    EXPECT_EQ(Globals.Bookmarks[1].Owner, nullptr);
    EXPECT_EQ(Globals.Bookmarks[0].Owner, owner);
    EXPECT_EQ(Globals.Bookmarks[3].Owner, other);
}

TEST_F(DispatchTest, EditingLocksTurnOthersAway)
{
    TextRecord* a = AddFakeText("/d", "a");
    TextRecord* b = AddFakeText("/d", "b");
    for (auto [lock, unlock] : {std::pair{CMD_KEYS_LOCK, CMD_KEYS_UNLOCK}, std::pair{CMD_MENUS_LOCK, CMD_MENUS_UNLOCK}}) {
        EXPECT_EQ(Request(a, lock, 0), 1);
        EXPECT_EQ(Request(b, lock, 0), 0);
        EXPECT_EQ(Request(a, lock, 0), 0) << "the lock does not nest";
        Post(a, static_cast<int16_t>(unlock | CMD_FREE), 0);
        EXPECT_EQ(Request(b, lock, 0), 1);
        Post(b, static_cast<int16_t>(unlock | CMD_FREE), 0);
    }
}

TEST_F(DispatchTest, KeyMapChangesOfOthersAreRefusedWhileOneTextHoldsTheLock)
{
    InitKeyMap(&GlobalKeyMap);
    TextRecord* a = AddFakeText("/d", "a");
    TextRecord* b = AddFakeText("/d", "b");
    KeyRequest request;
    request.Key = 3;
    request.Qualifier = 1;
    request.Macro = const_cast<char*>("old");
    auto address = reinterpret_cast<intptr_t>(&request);
    EXPECT_EQ(Request(b, CMD_KEY_SET, address), 1);
    EXPECT_EQ(Request(a, CMD_KEYS_LOCK, 0), 1);
    request.Macro = const_cast<char*>("new");
    EXPECT_EQ(Request(b, CMD_KEY_SET, address), 0);
    Request(b, CMD_KEY_CLEAR, address);
    // Lookup goes on, and tells that the keys are being edited; the text
    // comes as a copy of the sender's own.
    auto* text = reinterpret_cast<char*>(Request(b, CMD_KEY_GET, address));
    ASSERT_NE(text, nullptr);
    EXPECT_STREQ(text, "old");
    EXPECT_TRUE(request.Locked);
    FreeVec(text);
    EXPECT_EQ(Request(a, CMD_KEY_SET, address), 1);
    Post(a, CMD_KEYS_UNLOCK | CMD_FREE, 0);
    Request(b, CMD_KEY_CLEAR, address);
    EXPECT_EQ(Request(b, CMD_KEY_GET, address), 0);
    EXPECT_FALSE(request.Locked);
    FreeKeyMap(&GlobalKeyMap);
}

TEST_F(DispatchTest, CodesWithoutHandlerAnswerZeroAndUnknownCodesKeepTheirArgument)
{
    TextRecord* a = AddFakeText("/d", "a");
    // A subsystem that has not installed its handler must not hand the
    // sender's own argument back as if it were a window or a key's macro.
    EXPECT_FALSE(HasMainHandler(CMD_HELP_ID));
    EXPECT_EQ(Request(a, CMD_HELP_ID, reinterpret_cast<intptr_t>(a)), 0);
    EXPECT_EQ(Request(a, 62, 1234), 1234);
    EXPECT_EQ(Request(a, CMD_LOAD_TOOLBAR, 77), 77);
}

TEST_F(DispatchTest, CloseTextClosesTheSenderOrAll)
{
    TextRecord* a = AddFakeText("/d", "a");
    TextRecord* b = AddFakeText("/d", "b");
    Post(b, CMD_CLOSE_TEXT | CMD_FREE, 1);   // CLOSE(1) from b closes b
    EXPECT_TRUE(TakeCommands(a).empty());
    EXPECT_EQ(TakeCommands(b), std::vector<int>{CMD_CLOSE_NOW});
    Post(a, CMD_CLOSE_TEXT | CMD_FREE, -1);
    EXPECT_EQ(TakeCommands(a), std::vector<int>{CMD_CLOSE_NOW});
    EXPECT_EQ(TakeCommands(b), std::vector<int>{CMD_CLOSE_NOW});
}

TEST_F(DispatchTest, ListTextsInListOrderWithOptionalNewWindowRow)
{
    TextRecord* a = AddFakeText("/d", "first.txt");
    AddFakeText("/d", "a-name-much-longer-than-thirty-one-characters.txt");
    auto* list = reinterpret_cast<void*>(Request(a, CMD_LIST_TEXTS, 1));
    ASSERT_NE(list, nullptr);
    ASSERT_EQ(TextNameCount(list), 3);
    EXPECT_STREQ(TextNameRow(list, 0), "New window");
    EXPECT_STREQ(TextNameRow(list, 1), "first.txt");
    EXPECT_STREQ(TextNameRow(list, 2), "a-name-much-longer-than-thirty-");
    FreeVec(list);
}

TEST_F(DispatchTest, FindStringsAreCopiedAndCut)
{
    TextRecord* a = AddFakeText("/d", "a");
    std::string longText(80, 'x');
    Request(a, CMD_SET_FIND, reinterpret_cast<intptr_t>(longText.c_str()));
    auto* copy = reinterpret_cast<char*>(Request(a, CMD_GET_FIND, 0));
    EXPECT_EQ(std::string(copy), std::string(49, 'x'));
    FreeVec(copy);
}

} // namespace
