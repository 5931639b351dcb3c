#pragma once
// Internal to the exec layer: the shared countdown behind
// SetAllocationFailureCountdown. Each allocating call asks once.

// True if this allocation may go ahead; false once the countdown ran out.
bool AllocationAllowed();
