#pragma once
// The clip unit that copying and pasting use, one for the whole program.
// It is 0 at start and always within 0 to CLIP_UNITS - 1. A macro in any
// text may change it while other texts copy or paste, hence atomic.
#include <atomic>
#include <cstdint>

extern std::atomic<int32_t> ClipUnit;

// Puts the unit in use into `old`; then a unit from 0 to 255 becomes the
// clip unit, and a negative one changes nothing. A unit above 255 gives
// false with nothing changed (the caller reports it).
bool ChangeClipUnit(int32_t unit, int32_t* old);
