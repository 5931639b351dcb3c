#include "platform/exec/ports.h"
#include "platform/exec/tasks.h"

#include "exec_test_support.h"

#include <thread>

namespace {

using Tasks = ExecTest;

TEST_F(Tasks, FindTaskByNameAndForTheCaller)
{
    Task* self = FindTask(nullptr);
    ASSERT_NE(self, nullptr);
    EXPECT_EQ(FindTask(nullptr), self);

    // The task waits for a start message at its pr_MsgPort, as a text does,
    // and says who it is in the reply.
    Task* seenInside = nullptr;
    Task* worker = Start("Tavrel.0", [&] {
        MsgPort* port = FindTask(nullptr)->pr_MsgPort;
        WaitPort(port);
        seenInside = FindTask(nullptr);
        ReplyMsg(GetMsg(port));
    });
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

    // A thread not started here becomes a task of its own on first use.
    Task* adopted = nullptr;
    std::thread([&] { adopted = FindTask(nullptr); }).join();
    EXPECT_NE(adopted, nullptr);
    EXPECT_NE(adopted, self);
}

TEST_F(Tasks, WaitTakesEverySetBitOfItsMaskAndNoOther)
{
    Task* self = FindTask(nullptr);
    int a = AllocSignal(-1), b = AllocSignal(-1), c = AllocSignal(-1);
    ASSERT_TRUE(a >= 16 && b >= 16 && c >= 16 && a != b && b != c && a != c);
    uint32_t bitA = 1u << a, bitB = 1u << b, bitC = 1u << c;

    Signal(self, bitA | bitB | bitC);
    EXPECT_EQ(Wait(bitA | bitB), bitA | bitB);
    EXPECT_EQ(SetSignal(0, bitC) & (bitA | bitB | bitC), bitC);
    EXPECT_EQ(SetSignal(0, 0) & bitC, 0u);

    // A wait that has to sleep is woken from another task.
    Start("signaller", [&] { Signal(self, bitB); });
    EXPECT_EQ(Wait(bitA | bitB), bitB);
    for (int bit : {a, b, c})
        FreeSignal(bit);
}

// The exception fires once per arming, for armed bits only, and not for a
// bit that was already received when arming.
TEST_F(Tasks, ExceptionSetsBreakFlagFromTheSignaller)
{
    Task* self = FindTask(nullptr);
    int armedBit = AllocSignal(-1), otherBit = AllocSignal(-1);
    uint32_t armed = 1u << armedBit, other = 1u << otherBit;
    auto signalFromTask = [&](uint32_t bits) {
        Start("input", [=] { Signal(self, bits); });
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
    EXPECT_EQ(Wait(armed | other), armed | other);

    self->BreakFlag = 0;
    SetExcept(armed, armed);
    EXPECT_EQ(SetExcept(0, armed), armed);
    signalFromTask(armed);
    EXPECT_EQ(self->BreakFlag, 0);
    Wait(armed);
    FreeSignal(armedBit);
    FreeSignal(otherBit);
}

} // namespace
