#include "platform/exec/semaphores.h"

#include "platform/exec/task_record.h"

#include <mutex>

// Every hold of the exclusive owner, shared ones included, counts in
// ss_NestCount, so ReleaseSemaphore tells the owner's holds from shared
// ones by who calls it. Waiters are woken while the lock is held, so that
// a woken task may destroy the semaphore as soon as it has its hold.

void InitSemaphore(SignalSemaphore* semaphore)
{
    std::lock_guard<std::mutex> hold(semaphore->ss_Mutex);
    semaphore->ss_Owner = nullptr;
    semaphore->ss_NestCount = 0;
    semaphore->ss_SharedCount = 0;
}

void ObtainSemaphore(SignalSemaphore* semaphore)
{
    Task* self = CurrentTask();
    std::unique_lock<std::mutex> hold(semaphore->ss_Mutex);
    if (semaphore->ss_Owner != self) {
        semaphore->ss_Changed.wait(hold, [&] {
            return !semaphore->ss_Owner && semaphore->ss_SharedCount == 0;
        });
        semaphore->ss_Owner = self;
    }
    ++semaphore->ss_NestCount;
}

void ObtainSemaphoreShared(SignalSemaphore* semaphore)
{
    Task* self = CurrentTask();
    std::unique_lock<std::mutex> hold(semaphore->ss_Mutex);
    if (semaphore->ss_Owner == self) {
        ++semaphore->ss_NestCount;
        return;
    }
    semaphore->ss_Changed.wait(hold, [&] { return !semaphore->ss_Owner; });
    ++semaphore->ss_SharedCount;
}

bool AttemptSemaphore(SignalSemaphore* semaphore)
{
    Task* self = CurrentTask();
    std::lock_guard<std::mutex> hold(semaphore->ss_Mutex);
    if (semaphore->ss_Owner != self) {
        if (semaphore->ss_Owner || semaphore->ss_SharedCount > 0)
            return false;
        semaphore->ss_Owner = self;
    }
    ++semaphore->ss_NestCount;
    return true;
}

void ReleaseSemaphore(SignalSemaphore* semaphore)
{
    Task* self = CurrentTask();
    std::lock_guard<std::mutex> hold(semaphore->ss_Mutex);
    if (semaphore->ss_Owner == self) {
        if (--semaphore->ss_NestCount == 0) {
            semaphore->ss_Owner = nullptr;
            semaphore->ss_Changed.notify_all();
        }
    } else if (semaphore->ss_SharedCount > 0 && --semaphore->ss_SharedCount == 0) {
        semaphore->ss_Changed.notify_all();
    }
}
