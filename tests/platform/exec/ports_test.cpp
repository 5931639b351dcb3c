#include "platform/exec/ports.h"
#include "platform/exec/tasks.h"

#include "exec_test_support.h"

#include <atomic>
#include <thread>
#include <vector>

namespace {

using Ports = ExecTest;

struct NumberedMessage {
    Message message;
    int sender = 0;
    long sequence = 0;
};

NumberedMessage* Numbered(Message* message)
{
    return reinterpret_cast<NumberedMessage*>(message);
}

TEST_F(Ports, QueueIsFifoAndRepliesAreMarked)
{
    MsgPort* port = CreateMsgPort();
    MsgPort* replies = CreateMsgPort();
    ASSERT_TRUE(port && replies);
    EXPECT_EQ(GetMsg(port), nullptr);

    NumberedMessage first, second, third;
    second.message.mn_ReplyPort = replies;
    for (NumberedMessage* m : {&first, &second, &third})
        PutMsg(port, &m->message);
    EXPECT_EQ(WaitPort(port), &first.message);
    EXPECT_EQ(GetMsg(port), &first.message);
    EXPECT_EQ(GetMsg(port), &second.message);
    EXPECT_EQ(second.message.mn_Node.ln_Type, NT_MESSAGE);
    ReplyMsg(&second.message);
    EXPECT_EQ(GetMsg(replies), &second.message);
    EXPECT_EQ(second.message.mn_Node.ln_Type, NT_REPLYMSG);
    EXPECT_EQ(GetMsg(port), &third.message);
    EXPECT_EQ(GetMsg(port), nullptr);
    DeleteMsgPort(port);
    DeleteMsgPort(replies);
}

// Eight senders at one port: every message arrives once, and each sender's
// messages arrive in the order sent.
TEST_F(Ports, ConcurrentSendersLoseAndDuplicateNothing)
{
    constexpr int kSenders = 8;
    const long perSender = StressCount(100000);
    MsgPort* port = CreateMsgPort();
    ASSERT_NE(port, nullptr);
    std::vector<std::vector<NumberedMessage>> messages(kSenders);
    for (int sender = 0; sender < kSenders; ++sender) {
        messages[sender].resize(perSender);
        std::vector<NumberedMessage>* own = &messages[sender];
        Start("sender", [=] {
            for (long i = 0; i < perSender; ++i) {
                (*own)[i].sender = sender;
                (*own)[i].sequence = i;
                PutMsg(port, &(*own)[i].message);
            }
        });
    }

    std::vector<long> next(kSenders, 0);
    long outOfOrder = 0;
    for (long received = 0; received < kSenders * perSender; ++received) {
        WaitPort(port);
        NumberedMessage* m = Numbered(GetMsg(port));
        outOfOrder += m->sequence != next[m->sender];
        next[m->sender] = m->sequence + 1;
    }
    EXPECT_EQ(outOfOrder, 0);
    EXPECT_EQ(GetMsg(port), nullptr);
    WaitForAllTasks();
    DeleteMsgPort(port);
}

// 64 clients in synchronous round trips with one server: each gets back its
// own message, with the server's answer in it.
// The putter signals after letting the queue go; an owner that takes its
// message and ends at once, deleting its port, must still never be
// signalled after it is gone (the sanitizer builds watch this one).
TEST_F(Ports, AnOwnerMayEndAsSoonAsItHasItsMessage)
{
    const long rounds = StressCount(300);
    for (long round = 0; round < rounds; ++round) {
        std::atomic<MsgPort*> port{nullptr};
        ASSERT_NE(CreateNewProc("short", [&port] {
            MsgPort* own = CreateMsgPort();
            port.store(own);
            while (!GetMsg(own))
                WaitPort(own);
            DeleteMsgPort(own);
        }), nullptr);
        while (!port.load())
            std::this_thread::yield();
        Message message;
        PutMsg(port.load(), &message);
        WaitForAllTasks();
    }
}

TEST_F(Ports, SynchronousRoundTripsReachTheirSenders)
{
    constexpr int kClients = 64;
    const long tripsPerClient = StressCount(2000);
    MsgPort* server = CreateMsgPort();
    ASSERT_NE(server, nullptr);
    std::atomic<long> wrongReplies{0};

    for (int client = 0; client < kClients; ++client) {
        Start("client", [=, &wrongReplies] {
            MsgPort* replyPort = FindTask(nullptr)->pr_MsgPort;
            NumberedMessage request;
            request.message.mn_ReplyPort = replyPort;
            for (long i = 0; i < tripsPerClient; ++i) {
                request.sender = client;
                request.sequence = i;
                PutMsg(server, &request.message);
                WaitPort(replyPort);
                if (GetMsg(replyPort) != &request.message || request.sequence != -i)
                    ++wrongReplies;
            }
        });
    }

    for (long served = 0; served < kClients * tripsPerClient; ++served) {
        WaitPort(server);
        NumberedMessage* m = Numbered(GetMsg(server));
        m->sequence = -m->sequence;
        ReplyMsg(&m->message);
    }
    WaitForAllTasks();
    EXPECT_EQ(wrongReplies, 0);
    DeleteMsgPort(server);
}

TEST_F(Ports, PublicPortsAreFoundByNameUntilDeleted)
{
    MsgPort* low = CreatePort("Tavrel.1", 0);
    MsgPort* high = CreatePort("Tavrel.1", 5);
    ASSERT_TRUE(low && high);
    EXPECT_EQ(FindPort("Tavrel.1"), high);
    EXPECT_EQ(FindPort("tavrel.1"), nullptr);
    DeletePort(high);
    EXPECT_EQ(FindPort("Tavrel.1"), low);
    RemPort(low);
    EXPECT_EQ(FindPort("Tavrel.1"), nullptr);
    AddPort(low);
    EXPECT_EQ(FindPort("Tavrel.1"), low);
    DeletePort(low);
    EXPECT_EQ(FindPort("Tavrel.1"), nullptr);
}

// Posters look the port up and post under Forbid while its owner takes it
// down and makes it again: nothing is posted to a deleted port. Each poster
// has one message and waits for it to come back before the next post.
TEST_F(Ports, ForbidKeepsAFoundPortAlive)
{
    std::atomic<bool> stop{false};
    std::atomic<long> posted{0};
    for (int i = 0; i < 4; ++i) {
        Start("poster", [&] {
            Message message;
            MsgPort* replyPort = FindTask(nullptr)->pr_MsgPort;
            message.mn_ReplyPort = replyPort;
            while (!stop) {
                Forbid();
                Forbid();
                MsgPort* port = FindPort("Tavrel.host");
                if (port)
                    PutMsg(port, &message);
                Permit();
                Permit();
                if (!port) {
                    std::this_thread::yield();
                    continue;
                }
                ++posted;
                WaitPort(replyPort);
                GetMsg(replyPort);
            }
        });
    }
    for (int round = 0; round < StressCount(200); ++round) {
        MsgPort* host = CreatePort("Tavrel.host", 0);
        ASSERT_NE(host, nullptr);
        for (long target = posted + 2; posted < target;) {
            WaitPort(host);
            ReplyMsg(GetMsg(host));
        }
        RemPort(host);
        while (Message* late = GetMsg(host))
            ReplyMsg(late);
        DeletePort(host);
    }
    stop = true;
    WaitForAllTasks();
}

} // namespace
