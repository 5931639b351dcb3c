#include "platform/exec/ports.h"
#include "platform/exec/tasks.h"

#include "exec_test_support.h"

#include <atomic>
#include <thread>
#include <vector>

namespace {

using Tasks = ExecTest;

TEST_F(Tasks, FindTaskByNameAndForTheCaller)
{
    Task* self = FindTask(nullptr);
    ASSERT_NE(self, nullptr);
    EXPECT_EQ(FindTask(nullptr), self);
    ASSERT_NE(self->pr_MsgPort, nullptr);
    EXPECT_EQ(self->pr_MsgPort->mp_SigTask, self);

    // The task waits for a start message at its pr_MsgPort, as a text does,
    // and says who it is in the reply.
    Task* seenInside = nullptr;
    Task* worker = CreateNewProc("Tavrel.0", [&] {
        Task* me = FindTask(nullptr);
        WaitPort(me->pr_MsgPort);
        Message* start = GetMsg(me->pr_MsgPort);
        seenInside = me;
        ReplyMsg(start);
    });
    ASSERT_NE(worker, nullptr);
    EXPECT_EQ(FindTask("Tavrel.0"), worker);
    EXPECT_EQ(FindTask("Tavrel.00"), nullptr);

    Message start;
    start.mn_ReplyPort = self->pr_MsgPort;
    PutMsg(worker->pr_MsgPort, &start);
    EXPECT_EQ(WaitPort(self->pr_MsgPort), &start);
    EXPECT_EQ(GetMsg(self->pr_MsgPort), &start);
    EXPECT_EQ(seenInside, worker);

    WaitForAllTasks();
    EXPECT_EQ(FindTask("Tavrel.0"), nullptr);
}

// A thread the layer did not start becomes a task of its own on first use,
// and its record goes with the thread.
TEST_F(Tasks, ForeignThreadIsAdopted)
{
    Task* main = FindTask(nullptr);
    Task* adopted = nullptr;
    std::thread foreign([&] {
        adopted = FindTask(nullptr);
        MsgPort* port = CreateMsgPort();
        EXPECT_NE(port, nullptr);
        DeleteMsgPort(port);
    });
    foreign.join();
    EXPECT_NE(adopted, nullptr);
    EXPECT_NE(adopted, main);
}

TEST_F(Tasks, WaitTakesEverySetBitOfItsMaskAndNoOther)
{
    Task* self = FindTask(nullptr);
    int a = AllocSignal(-1), b = AllocSignal(-1), c = AllocSignal(-1);
    ASSERT_TRUE(a >= 16 && b >= 16 && c >= 16);
    uint32_t bitA = 1u << a, bitB = 1u << b, bitC = 1u << c;

    Signal(self, bitA | bitB | bitC);
    EXPECT_EQ(Wait(bitA | bitB), bitA | bitB);
    EXPECT_EQ(SetSignal(0, 0) & (bitA | bitB | bitC), bitC);
    EXPECT_EQ(Wait(0), 0u);

    // A wait that has to sleep is woken from another task.
    Task* signaller = CreateNewProc("signaller", [&] { Signal(self, bitB); });
    ASSERT_NE(signaller, nullptr);
    EXPECT_EQ(Wait(bitA | bitB), bitB);

    SetSignal(0, bitC);
    EXPECT_EQ(SetSignal(0, 0) & bitC, 0u);
    FreeSignal(a);
    FreeSignal(b);
    FreeSignal(c);
}

// Run in a task of its own, where every user bit is still free.
TEST_F(Tasks, SignalBitsAreAllocatedOnce)
{
    Task* task = CreateNewProc("allocator", [] {
        uint32_t taken = 0;
        for (int bit; (bit = AllocSignal(-1)) >= 0;) {
            EXPECT_TRUE(bit >= 16 && bit <= 31) << bit;
            EXPECT_FALSE(taken & (1u << bit)) << "bit " << bit << " given twice";
            taken |= 1u << bit;
        }
        EXPECT_EQ(taken, 0xffff0000u);
        EXPECT_EQ(CreateMsgPort(), nullptr);
        EXPECT_EQ(AllocSignal(20), -1);
        FreeSignal(20);
        EXPECT_EQ(AllocSignal(20), 20);
        EXPECT_EQ(AllocSignal(8), -1);   // system bits are never given out
        FreeSignal(8);
        EXPECT_EQ(AllocSignal(8), -1);
    });
    ASSERT_NE(task, nullptr);
}

// The exception fires once per arming, for armed bits only, and not for a
// bit that was already received when arming.
TEST_F(Tasks, ExceptionSetsBreakFlagFromTheSignaller)
{
    Task* self = FindTask(nullptr);
    int armedBit = AllocSignal(-1), otherBit = AllocSignal(-1);
    uint32_t armed = 1u << armedBit, other = 1u << otherBit;
    auto signalFromTask = [&](uint32_t bits) {
        ASSERT_NE(CreateNewProc("input", [=] { Signal(self, bits); }), nullptr);
        WaitForAllTasks();
    };

    Signal(self, armed);
    EXPECT_EQ(SetExcept(armed, armed), 0u);
    self->BreakFlag = -1;
    signalFromTask(other);
    EXPECT_EQ(self->BreakFlag, -1);
    signalFromTask(armed);
    EXPECT_EQ(self->BreakFlag, 1);
    EXPECT_EQ(SetExcept(0, 0), 0u) << "a fired exception is disarmed";

    self->BreakFlag = 0;
    signalFromTask(armed);
    EXPECT_EQ(self->BreakFlag, 0);
    EXPECT_EQ(Wait(armed | other), armed | other);

    SetExcept(armed, armed);
    EXPECT_EQ(SetExcept(0, armed), armed);
    signalFromTask(armed);
    EXPECT_EQ(self->BreakFlag, 0);
    Wait(armed);
    FreeSignal(armedBit);
    FreeSignal(otherBit);
}

} // namespace
