#pragma once
// The table of a text's lines.
//
// A text of a million lines must not cost a pointer per line on top of its
// characters: that alone is a quarter of a file of short lines. So the
// table is a list of runs. A run is up to LoadedRunLength lines whose
// zero-terminated strings follow one another in memory, and it is reached
// through one LineRun of 16 bytes. A load copies the file's lines, one
// behind the other, into big blocks of loaded text and cuts them into
// runs; so does a line written into the empty last line of the text, as
// line after line typed or written by a macro at the end. A line that
// changes later gets a string of its own in the LinePool and a run of its
// own. Loaded text is given back only when no line is left (ResetText,
// deleting every line, FreeTextRecord), so the old copy of a changed or
// deleted loaded line stays until then, unless it was the last one copied,
// whose bytes go back at once. Pool strings are freed as soon as their
// line changes again or goes. Each
// change costs a run, so a text whose every line has changed (a sort of
// the whole text) holds a run per line, and inserting or deleting a line
// then moves and renumbers the runs behind it.
//
// Line numbers map to runs by a binary search over FirstLine, then a walk
// over at most LoadedRunLength - 1 strings. The last line found is kept,
// so reading lines one after another costs one step each.
//
// Every operation that can need runs asks for its room first, through
// EnsureLineRoom, so that a failure leaves the text as it was.
#include <cstddef>
#include <cstdint>

struct TextRecord;
struct MemPool;

struct LineRun {
    char* Text;        // the first line's string; the next begins behind its terminator
    int32_t FirstLine; // index of that line in the text
    int32_t Count;     // lines in the run, at least 1
};

// Loaded text: one block per load, or more when a load outgrows it.
struct LoadedTextBlock {
    LoadedTextBlock* Next;
    size_t Size; // bytes behind this header
    size_t Used;
};

// The pool of changed lines: cleared blocks carved from puddles of 4096
// bytes; strings longer than 255 characters get blocks of their own.
constexpr uint32_t LinePoolPuddleSize = 4096;
constexpr uint32_t LinePoolThreshold = 256;
// Lines a load puts in one run. Longer runs cost less table and more steps
// to reach a line in the middle.
constexpr int32_t LoadedRunLength = 32;
// Runs added when the table is full: storing a line asks for 256, inserting
// a line for 32.
constexpr int32_t StoreLineRoom = 256;
constexpr int32_t InsertLineRoom = 32;
// Spare runs that any one change of the table may use: cutting runs at
// both ends of a range, and one new run.
constexpr int32_t LineChangeRuns = 3;
constexpr int32_t InitialRunCapacity = 32;
// The size of the first block of loaded text when the file's length is
// unknown, and the least size of every further block.
constexpr size_t LoadedTextBlockSize = size_t{1} << 20;

MemPool* CreateLinePool();

// The table of a new text: one empty line. False when it can't be had.
bool CreateLineTable(TextRecord* record);
// Gives back the table and the loaded text. Pool strings are left to the
// pool.
void FreeLineTable(TextRecord* record);
// Drops every line at once, LineCount becoming 0 for a load to append to;
// loaded text is given back, pool strings are left to the pool (the
// caller replaces it). The table keeps its size.
void EmptyLineTable(TextRecord* record);

// Makes sure that LineChangeRuns runs are free. With room nothing happens;
// else the table grows by `n` runs more. False after ReportNoMemory,
// with the old table kept.
bool EnsureLineRoom(TextRecord* record, int32_t n);
// Makes room for `runs` runs more than the table holds, at once, as a load
// that knows its file's size asks: a table grown a little at a time copies
// itself and takes fresh pages each time. False after ReportNoMemory.
bool ReserveLineRuns(TextRecord* record, int64_t runs);
// Makes sure that a load adding about `bytes` of text finds a block that
// holds it. Nothing is touched until lines arrive, so a generous guess
// costs address space only. False after ReportNoMemory.
bool ReserveLoadedText(TextRecord* record, size_t bytes);

// Makes `text` the string of line `index` (0 .. LineCount; LineCount
// appends a line and counts it). The caller's buffer loses its trailing
// spaces first. An appended line, and one that fills the empty last line
// an InsertEmptyLine at the end made, goes to the loaded text, any other
// replaced line to the pool; the line's old string is freed if the pool
// holds it. False after ReportNoMemory, with the table untouched.
bool StoreLine(TextRecord* record, char* text, int32_t index);

// Appends the lines that the `size` bytes at `bytes` hold one after
// another, each ended by a newline, as StoreLine at LineCount would store
// them: without their trailing spaces. Stops before a line that doesn't
// end within the bytes, holds a zero byte, or has MaxLineLength characters
// or more; those are the caller's to build. Gives the bytes taken,
// newlines included, or -1 after ReportNoMemory, with the lines before
// kept.
long AppendNewlineLines(TextRecord* record, const char* bytes, size_t size);

// The stored string of a line in use; empty lines share one empty string,
// which must not be written. Other strings may be changed in place as long
// as their length stays.
char* LineString(const TextRecord* record, int32_t line);

// Reading lines in order without a search per line: a walk starts at a
// line and gives the strings one after another with their lengths. The
// table must not change during the walk, nor may it run past the last line.
struct LineWalk {
    const TextRecord* Record;
    int32_t Run;      // run of the next line
    int32_t Left;     // lines of that run from the next line on
    const char* Next; // the next line's string
};
LineWalk StartLineWalk(const TextRecord* record, int32_t line);
const char* WalkLine(LineWalk* walk, size_t* length);

// An empty line goes in before line `at` (0 .. LineCount). The room is the
// caller's to ensure.
void InsertEmptyLine(TextRecord* record, int32_t at);
// Lines first .. first + count - 1 leave the table; their pool strings are
// freed, loaded strings that end the loaded text go back to it, and all
// the loaded text when no line is left. This needs no room,
// so it can't fail.
void DropLines(TextRecord* record, int32_t first, int32_t count);
// The lines `middle` .. `end` - 1 move to stand before `first`, as
// std::rotate would move them. The room is the caller's to ensure.
void RotateLines(TextRecord* record, int32_t first, int32_t middle, int32_t end);
// The strings of lines first .. first + count - 1, in order, into
// `strings`, which the caller may reorder and give back to
// PutLineStrings: the same strings, each now a run of its own. False
// after ReportNoMemory, with the table untouched.
void GetLineStrings(const TextRecord* record, int32_t first, int32_t count, char** strings);
bool PutLineStrings(TextRecord* record, int32_t first, int32_t count, char* const* strings);
