#include "platform/exec/semaphores.h"
#include "platform/exec/tasks.h"

#include "exec_test_support.h"

#include <atomic>

namespace {

using Semaphores = ExecTest;

TEST_F(Semaphores, ExclusiveHoldIsReentrantAndShutsOthersOut)
{
    SignalSemaphore semaphore;
    InitSemaphore(&semaphore);
    ObtainSemaphore(&semaphore);
    EXPECT_TRUE(AttemptSemaphore(&semaphore));
    ObtainSemaphoreShared(&semaphore);   // the owner may also read

    std::atomic<int> othersGot{-1};
    auto attemptFromTask = [&] {
        ASSERT_NE(CreateNewProc("other", [&] {
                      bool got = AttemptSemaphore(&semaphore);
                      othersGot = got;
                      if (got)
                          ReleaseSemaphore(&semaphore);
                  }),
                  nullptr);
        WaitForAllTasks();
    };
    for (int holds = 3; holds > 0; --holds) {
        attemptFromTask();
        EXPECT_EQ(othersGot, 0) << holds << " holds left";
        ReleaseSemaphore(&semaphore);
    }
    attemptFromTask();
    EXPECT_EQ(othersGot, 1);
}

// A second shared holder gets in while the first is still inside, and an
// exclusive attempt fails until both are out.
TEST_F(Semaphores, SharedHoldersRunTogether)
{
    SignalSemaphore semaphore;
    InitSemaphore(&semaphore);
    ObtainSemaphoreShared(&semaphore);
    std::atomic<bool> readerInside{false}, readerMayLeave{false};
    ASSERT_NE(CreateNewProc("reader", [&] {
                  ObtainSemaphoreShared(&semaphore);
                  readerInside = true;
                  Eventually([&] { return readerMayLeave.load(); });
                  ReleaseSemaphore(&semaphore);
              }),
              nullptr);
    EXPECT_TRUE(Eventually([&] { return readerInside.load(); }));
    EXPECT_FALSE(AttemptSemaphore(&semaphore));
    ReleaseSemaphore(&semaphore);
    EXPECT_FALSE(AttemptSemaphore(&semaphore));
    readerMayLeave = true;
    WaitForAllTasks();
    EXPECT_TRUE(AttemptSemaphore(&semaphore));
    ReleaseSemaphore(&semaphore);
}

// Readers and writers hammer one semaphore; each checks on entry who else
// is inside.
TEST_F(Semaphores, ExclusiveHolderRunsAlone)
{
    SignalSemaphore semaphore;
    InitSemaphore(&semaphore);
    std::atomic<int> readers{0}, writers{0}, violations{0};
    long unguarded = 0;
    const int rounds = static_cast<int>(StressCount(20000));
    for (int i = 0; i < 6; ++i) {
        bool writer = i % 2 == 0;
        ASSERT_NE(CreateNewProc("user", [&, writer] {
                      for (int round = 0; round < rounds; ++round) {
                          if (writer) {
                              ObtainSemaphore(&semaphore);
                              if (++writers != 1 || readers != 0)
                                  ++violations;
                              ++unguarded;
                              --writers;
                          } else {
                              ObtainSemaphoreShared(&semaphore);
                              ++readers;
                              if (writers != 0)
                                  ++violations;
                              --readers;
                          }
                          ReleaseSemaphore(&semaphore);
                      }
                  }),
                  nullptr);
    }
    WaitForAllTasks();
    EXPECT_EQ(violations, 0);
    EXPECT_EQ(unguarded, 3L * rounds);
}

} // namespace
