#include "platform/exec/task_record.h"

#include <atomic>
#include <chrono>
#include <mutex>

// Waking without lost signals: Wait publishes its mask in sigWait and then
// looks at sigRecvd; Signal sets sigRecvd and then looks at sigWait. Both
// orders are sequentially consistent, so at least one side sees the other:
// either the waiter finds the bit, or the signaller finds the mask and
// notifies. The signaller takes sleepLock before notifying, and the waiter
// holds it from publishing its mask until it sleeps, so the notification
// cannot fall between the waiter's look and its sleep.

namespace {

constexpr int kFirstUserSignal = 16;

uint32_t Bit(int signalNumber)
{
    return 1u << signalNumber;
}

// Replaces the bits of `mask` in `word` by those of `newBits`; the old value.
uint32_t ChangeBits(std::atomic<uint32_t>& word, uint32_t newBits, uint32_t mask)
{
    uint32_t old = word.load();
    while (!word.compare_exchange_weak(old, (old & ~mask) | (newBits & mask))) {
    }
    return old;
}

} // namespace

int AllocSignal(int signalNumber)
{
    TaskRecord* task = CurrentTask();
    if (!task || signalNumber > 31)
        return -1;
    uint32_t allocated = task->sigAlloc.load();
    int bit;
    do {
        bit = signalNumber;
        if (bit < 0) {
            for (int candidate = 31; candidate >= kFirstUserSignal && bit < 0; --candidate) {
                if (!(allocated & Bit(candidate)))
                    bit = candidate;
            }
            if (bit < 0)
                return -1;
        } else if (allocated & Bit(bit)) {
            return -1;
        }
    } while (!task->sigAlloc.compare_exchange_weak(allocated, allocated | Bit(bit)));
    task->sigRecvd.fetch_and(~Bit(bit));
    return bit;
}

void FreeSignalOf(TaskRecord* task, int signalNumber)
{
    if (task && signalNumber >= kFirstUserSignal && signalNumber <= 31)
        task->sigAlloc.fetch_and(~Bit(signalNumber));
}

void FreeSignal(int signalNumber)
{
    FreeSignalOf(CurrentTask(), signalNumber);
}

namespace {

// Sets the bits; true when the task waits on one of them.
bool Deliver(TaskRecord* record, uint32_t signals)
{
    // The exception fires once per arming, from this thread, before the
    // receiver can see the signal.
    uint32_t armed = record->sigExcept.load() & signals;
    if (armed && (record->sigExcept.fetch_and(~armed) & armed))
        record->BreakFlag.store(1);

    record->sigRecvd.fetch_or(signals);
    return (record->sigWait.load() & signals) != 0;
}

} // namespace

// A task woken here may end at once, so the record is let go only after
// the notification, with the sleep lock still held.
void Signal(Task* task, uint32_t signals)
{
    TaskRecord* record = Record(task);
    if (Deliver(record, signals)) {
        std::lock_guard<std::mutex> hold(record->sleepLock);
        record->wake.notify_one();
    }
}

// Taking the sleep lock once is enough: a waiter that published its mask
// holds the lock until it sleeps, so once we have had it the waiter sleeps
// in `wake` or has seen the bit.
void SignalFromPort(TaskRecord* task, uint32_t signals)
{
    if (Deliver(task, signals)) {
        {
            std::lock_guard<std::mutex> hold(task->sleepLock);
        }
        task->wake.notify_one();
    }
}

namespace {

// Looks at the bits for a few microseconds before the task sleeps: a reply
// or a next request that comes that soon (a script's host commands, a
// client's requests) is taken without putting the thread to sleep and
// waking it again, which costs tens of microseconds on a virtual machine.
bool ArrivesSoon(const TaskRecord* task, uint32_t mask)
{
    constexpr auto kSpin = std::chrono::microseconds(30);
    const auto until = std::chrono::steady_clock::now() + kSpin;
    for (;;) {
        for (int look = 0; look < 64; ++look) {
            if (task->sigRecvd.load(std::memory_order_relaxed) & mask)
                return true;
#if defined(__x86_64__) || defined(__i386__)
            __builtin_ia32_pause();
#endif
        }
        if (std::chrono::steady_clock::now() >= until)
            return false;
    }
}

} // namespace

uint32_t Wait(uint32_t mask)
{
    if (mask == 0)
        return 0;
    TaskRecord* task = CurrentTask();
    if (!(task->sigRecvd.load() & mask) && !ArrivesSoon(task, mask)) {
        std::unique_lock<std::mutex> hold(task->sleepLock);
        task->sigWait.store(mask);
        while (!(task->sigRecvd.load() & mask))
            task->wake.wait(hold);
        task->sigWait.store(0);
    }
    return task->sigRecvd.fetch_and(~mask) & mask;
}

uint32_t SetSignal(uint32_t newSignals, uint32_t mask)
{
    return ChangeBits(CurrentTask()->sigRecvd, newSignals, mask);
}

uint32_t SetExcept(uint32_t newSignals, uint32_t mask)
{
    return ChangeBits(CurrentTask()->sigExcept, newSignals, mask);
}
