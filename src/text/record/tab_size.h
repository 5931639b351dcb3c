#pragma once
// The distance of the tab stops of one text.
#include <cstdint>

struct TextRecord;

constexpr int16_t MinTabSize = 1;
constexpr int16_t MaxTabSize = 40;

// Stores `size` (MinTabSize to MaxTabSize; the caller refuses others) in
// TabSize and rebuilds TabLabel, the menu label "Tabulations = <size>" in
// the user's language, cut to the field.
void SetTabSize(TextRecord* record, int16_t size);
