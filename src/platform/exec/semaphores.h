#pragma once
// Semaphores with exclusive holds (re-entrant for the holder) and shared
// holds. A task that holds a semaphore exclusively may also take it shared;
// that hold counts as one more exclusive nesting. Shared holders run
// together; an exclusive holder runs alone. A task that holds a semaphore
// shared and asks for it exclusively waits forever, as does any pair of
// tasks that take two semaphores in opposite orders.

#include <condition_variable>
#include <mutex>

struct Task;

struct SignalSemaphore {
    std::mutex ss_Mutex;
    std::condition_variable ss_Changed;
    Task* ss_Owner = nullptr;      // exclusive holder, or null
    int ss_NestCount = 0;          // exclusive nesting of the owner
    int ss_SharedCount = 0;        // shared holds of other tasks
};

void InitSemaphore(SignalSemaphore* semaphore);
void ObtainSemaphore(SignalSemaphore* semaphore);
void ObtainSemaphoreShared(SignalSemaphore* semaphore);
// Non-blocking exclusive attempt: true if taken.
bool AttemptSemaphore(SignalSemaphore* semaphore);
// Releases the caller's most recent hold, exclusive or shared.
void ReleaseSemaphore(SignalSemaphore* semaphore);
