#include "platform/exec/semaphores.h"
#include "platform/exec/tasks.h"

#include "exec_test_support.h"

#include <atomic>

namespace {

using Semaphores = ExecTest;

bool AttemptFromOtherTask(SignalSemaphore* semaphore)
{
    std::atomic<bool> got{false};
    Start("other", [&] {
        got = AttemptSemaphore(semaphore);
        if (got)
            ReleaseSemaphore(semaphore);
    });
    WaitForAllTasks();
    return got;
}

TEST_F(Semaphores, ExclusiveHoldIsReentrantAndShutsOthersOut)
{
    SignalSemaphore semaphore;
    InitSemaphore(&semaphore);
    ObtainSemaphore(&semaphore);
    EXPECT_TRUE(AttemptSemaphore(&semaphore));
    ObtainSemaphoreShared(&semaphore);   // the owner may also read
    for (int holds = 3; holds > 0; --holds) {
        EXPECT_FALSE(AttemptFromOtherTask(&semaphore)) << holds << " holds left";
        ReleaseSemaphore(&semaphore);
    }
    EXPECT_TRUE(AttemptFromOtherTask(&semaphore));
}

// A second shared holder gets in while the first is still inside, and no
// exclusive hold is given until both are out.
TEST_F(Semaphores, SharedHoldersRunTogether)
{
    SignalSemaphore semaphore;
    InitSemaphore(&semaphore);
    ObtainSemaphoreShared(&semaphore);
    std::atomic<bool> readerInside{false}, readerMayLeave{false};
    Start("reader", [&] {
        ObtainSemaphoreShared(&semaphore);
        readerInside = true;
        Eventually([&] { return readerMayLeave.load(); });
        ReleaseSemaphore(&semaphore);
    });
    EXPECT_TRUE(Eventually([&] { return readerInside.load(); }));
    EXPECT_FALSE(AttemptSemaphore(&semaphore));
    ReleaseSemaphore(&semaphore);
    EXPECT_FALSE(AttemptSemaphore(&semaphore));
    readerMayLeave = true;
    WaitForAllTasks();
    EXPECT_TRUE(AttemptFromOtherTask(&semaphore));
}

// Readers and writers hammer one semaphore; each checks on entry who else
// is inside, and the writers count without atomics.
TEST_F(Semaphores, ExclusiveHolderRunsAlone)
{
    SignalSemaphore semaphore;
    InitSemaphore(&semaphore);
    std::atomic<int> readers{0}, writers{0}, violations{0};
    long unguarded = 0;
    const long rounds = StressCount(20000);
    for (int i = 0; i < 6; ++i) {
        bool writer = i % 2 == 0;
        Start("user", [&, writer] {
            for (long round = 0; round < rounds; ++round) {
                if (writer) {
                    ObtainSemaphore(&semaphore);
                    violations += ++writers != 1 || readers != 0;
                    ++unguarded;
                    --writers;
                } else {
                    ObtainSemaphoreShared(&semaphore);
                    ++readers;
                    violations += writers != 0;
                    --readers;
                }
                ReleaseSemaphore(&semaphore);
            }
        });
    }
    WaitForAllTasks();
    EXPECT_EQ(violations, 0);
    EXPECT_EQ(unguarded, 3 * rounds);
}

} // namespace

