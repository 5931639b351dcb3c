#pragma once
// What the handlers of the text functions share: the checks of their
// arguments against the text and the cursor's position as the language
// shows it; their values are made as handler_values.h makes them. Line and
// column numbers are 1-based in the language and 0-based in the record.
#include "macro/handler_values.h"
#include "macro/macro_types.h"

#include <cstdint>

struct TextRecord;

// A line number of the language as a 0-based line of the text; -1 with
// "Incorrect argument value" set when it is not from 1 to LineCount.
int32_t CheckedLine(const TextRecord* record, int32_t line, MacroContext* context);

// True for a count from 1 to MaxLineLength; else false with "Incorrect
// argument value" set.
bool CheckedColumnCount(const TextRecord* record, int32_t count, MacroContext* context);

// The cursor's column and line as the language shows them, from 1.
int32_t CursorColumnValue(const TextRecord* record);
int32_t CursorLineValue(const TextRecord* record);

// What a step of a repeated edit or move may change.
struct TextMark {
    int32_t Line, Column, Length, Lines;
    bool operator==(const TextMark&) const = default;
};
TextMark MarkOf(const TextRecord* record);

// Runs `step` `count` times, a count of 0 or less not at all. It stops
// early once a step changed neither the cursor nor the cursor's line nor
// the number of lines: at an end of the text every further step would do
// nothing too, and a count of a billion must not hold the text that long.
template <typename Step>
void Repeat(TextRecord* record, int32_t count, Step step)
{
    for (int32_t done = 0; done < count; ++done) {
        const TextMark before = MarkOf(record);
        step();
        if (MarkOf(record) == before)
            return;
    }
}
