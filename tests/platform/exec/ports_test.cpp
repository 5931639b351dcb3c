#include "platform/exec/ports.h"
#include "platform/exec/tasks.h"

#include "exec_test_support.h"

#include <atomic>
#include <string>
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
    EXPECT_EQ(first.message.mn_Node.ln_Type, NT_MESSAGE);
    EXPECT_EQ(GetMsg(port), &first.message);
    EXPECT_EQ(GetMsg(port), &second.message);

    ReplyMsg(&second.message);
    EXPECT_EQ(GetMsg(replies), &second.message);
    EXPECT_EQ(second.message.mn_Node.ln_Type, NT_REPLYMSG);
    ReplyMsg(&first.message);
    EXPECT_EQ(first.message.mn_Node.ln_Type, NT_FREEMSG);

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
        ASSERT_NE(CreateNewProc(("sender." + std::to_string(sender)).c_str(), [=] {
                      for (long i = 0; i < perSender; ++i) {
                          (*own)[i].sender = sender;
                          (*own)[i].sequence = i;
                          PutMsg(port, &(*own)[i].message);
                      }
                  }),
                  nullptr);
    }

    std::vector<long> next(kSenders, 0);
    for (long received = 0; received < kSenders * perSender; ++received) {
        WaitPort(port);
        NumberedMessage* m = Numbered(GetMsg(port));
        ASSERT_EQ(m->sequence, next[m->sender]) << "sender " << m->sender;
        ++next[m->sender];
    }
    EXPECT_EQ(GetMsg(port), nullptr);
    WaitForAllTasks();
    DeleteMsgPort(port);
}

// 64 clients in synchronous round trips with one server: each gets back its
// own message, with the server's answer in it.
TEST_F(Ports, SynchronousRoundTripsReachTheirSenders)
{
    constexpr int kClients = 64;
    const long tripsPerClient = StressCount(2000);
    MsgPort* server = CreateMsgPort();
    ASSERT_NE(server, nullptr);
    std::atomic<long> wrongReplies{0};

    for (int client = 0; client < kClients; ++client) {
        ASSERT_NE(CreateNewProc(("client." + std::to_string(client)).c_str(), [=, &wrongReplies] {
                      MsgPort* replyPort = FindTask(nullptr)->pr_MsgPort;
                      NumberedMessage request;
                      request.message.mn_ReplyPort = replyPort;
                      for (long i = 0; i < tripsPerClient; ++i) {
                          request.sender = client;
                          request.sequence = i;
                          PutMsg(server, &request.message);
                          WaitPort(replyPort);
                          Message* reply = GetMsg(replyPort);
                          if (reply != &request.message || request.sequence != -i)
                              ++wrongReplies;
                      }
                  }),
                  nullptr);
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
    MsgPort* other = CreatePort("Tavrel.2", 0);
    ASSERT_TRUE(low && high && other);
    EXPECT_EQ(FindPort("Tavrel.1"), high);
    EXPECT_EQ(FindPort("Tavrel.2"), other);
    EXPECT_EQ(FindPort("tavrel.2"), nullptr);

    DeletePort(high);
    EXPECT_EQ(FindPort("Tavrel.1"), low);
    RemPort(other);
    EXPECT_EQ(FindPort("Tavrel.2"), nullptr);
    RemPort(other);
    AddPort(other);
    EXPECT_EQ(FindPort("Tavrel.2"), other);
    DeletePort(other);
    DeletePort(low);
    EXPECT_EQ(FindPort("Tavrel.1"), nullptr);
    EXPECT_EQ(FindPort("Tavrel.2"), nullptr);
}

// Senders look the port up and post under Forbid while its owner takes it
// down: nothing is posted to a deleted port.
TEST_F(Ports, ForbidKeepsAFoundPortAlive)
{
    std::atomic<bool> stop{false};
    std::atomic<long> posted{0};
    std::vector<NumberedMessage> messages(4);
    for (NumberedMessage& m : messages) {
        ASSERT_NE(CreateNewProc("poster", [&, m = &m] {
                      while (!stop) {
                          Forbid();
                          Forbid();
                          if (MsgPort* port = FindPort("Tavrel.host")) {
                              // Each poster has one message; it waits for the
                              // owner to hand it back before the next post.
                              m->message.mn_ReplyPort = FindTask(nullptr)->pr_MsgPort;
                              PutMsg(port, &m->message);
                              ++posted;
                          }
                          Permit();
                          Permit();
                          if (!m->message.mn_ReplyPort)
                              std::this_thread::yield();
                          else {
                              WaitPort(m->message.mn_ReplyPort);
                              GetMsg(m->message.mn_ReplyPort);
                              m->message.mn_ReplyPort = nullptr;
                          }
                      }
                  }),
                  nullptr);
    }
    for (int round = 0; round < StressCount(200); ++round) {
        MsgPort* host = CreatePort("Tavrel.host", 0);
        ASSERT_NE(host, nullptr);
        long target = posted + 2;
        while (posted < target) {
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
