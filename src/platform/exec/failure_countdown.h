#pragma once
// Internal to the exec layer: the shared countdown behind
// SetAllocationFailureCountdown. Each allocating call asks once.
#include <atomic>

// -1: no failures; otherwise the number of allocations still allowed.
extern std::atomic<long> allocationFailureCountdown;

// Counts one allocation down; false once the countdown has run out.
bool CountAllocationDown();

// True if this allocation may go ahead. Without a countdown, as always
// outside tests, that is one relaxed load, cheap enough for every line of
// a large file.
inline bool AllocationAllowed()
{
    return allocationFailureCountdown.load(std::memory_order_relaxed) < 0 || CountAllocationDown();
}
