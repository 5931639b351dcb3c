#include "text/record/line_table.h"

#include "platform/exec/memory.h"
#include "platform/utility/byte_scan.h"
#include "text/record/line_strings.h"
#include "text/record/no_memory_report.h"
#include "text/record/text_record.h"

#include <algorithm>
#include <cassert>
#include <cstring>

namespace {

// Every empty line that isn't part of a loaded run points here.
char EmptyLineString[1] = "";

// After any change of the runs: the last line found may have moved, and
// the last run may no longer end where the next loaded line begins.
void NoteTableChanged(TextRecord* record)
{
    record->LookupRun = -1;
    record->AppendRun = -1;
}

bool RunHolds(const LineRun& run, int32_t line)
{
    return line >= run.FirstLine && line < run.FirstLine + run.Count;
}

// The index of the run that holds `line`: the run of the last lookup or
// the one behind it, or the last run, else a binary search. Lines written
// one after another at the end of a long text change the table each time,
// and looking for them by a binary search over a table of many runs cost
// more than the writing.
int32_t FindRun(const TextRecord* record, int32_t line)
{
    const LineRun* runs = record->LineTable;
    const int32_t hint = record->LookupRun;
    if (hint >= 0 && hint < record->RunCount && RunHolds(runs[hint], line))
        return hint;
    if (hint >= 0 && hint + 1 < record->RunCount && RunHolds(runs[hint + 1], line))
        return hint + 1;
    const int32_t last = record->RunCount - 1;
    if (last >= 0 && RunHolds(runs[last], line))
        return last;
    const LineRun* behind = std::upper_bound(runs, runs + record->RunCount, line,
        [](int32_t l, const LineRun& run) { return l < run.FirstLine; });
    return static_cast<int32_t>(behind - runs) - 1;
}

bool IsLoadedText(const TextRecord* record, const char* text)
{
    const auto address = reinterpret_cast<uintptr_t>(text);
    for (const LoadedTextBlock* block = record->LoadedText; block; block = block->Next) {
        const auto start = reinterpret_cast<uintptr_t>(block + 1);
        if (address >= start && address < start + block->Size)
            return true;
    }
    return false;
}

void FreeLoadedText(TextRecord* record)
{
    while (LoadedTextBlock* block = record->LoadedText) {
        record->LoadedText = block->Next;
        FreeVec(block);
    }
}

// A new block of loaded text with at least `size` bytes, as large as the
// one before at least. False after ReportNoMemory.
[[gnu::noinline]] bool AddLoadedBlock(TextRecord* record, size_t size)
{
    const size_t previous = record->LoadedText ? record->LoadedText->Size : 0;
    return ReserveLoadedText(record, std::max({size, LoadedTextBlockSize, previous}));
}

// Makes sure that the newest block of loaded text has `size` bytes free.
// False after ReportNoMemory.
bool EnsureLoadedRoom(TextRecord* record, size_t size)
{
    const LoadedTextBlock* block = record->LoadedText;
    return (block && block->Size - block->Used >= size) || AddLoadedBlock(record, size);
}

// Where the bytes of the newest block of loaded text begin.
char* NewestLoadedBytes(const TextRecord* record)
{
    return reinterpret_cast<char*>(record->LoadedText + 1);
}

// The strings from `from` up to `to` are no longer any line's. When they
// are the last that the newest block of loaded text holds, the block takes
// their bytes back, and true: the end of a text written, changed or
// deleted, and written again costs no more loaded text each time.
bool GiveBackLoadedTail(TextRecord* record, const char* from, const char* to)
{
    LoadedTextBlock* block = record->LoadedText;
    if (!block)
        return false;
    const char* start = NewestLoadedBytes(record);
    if (from < start || to != start + block->Used)
        return false;
    block->Used = static_cast<size_t>(from - start);
    record->AppendRun = -1;
    return true;
}

// The end of a string: the byte behind its terminator.
const char* StringEnd(const char* text)
{
    return text + std::strlen(text) + 1;
}

// Frees the string of a run of one line when the pool holds it: a string
// that is neither empty nor loaded text.
void FreeRunString(TextRecord* record, const LineRun& run)
{
    if (run.Count == 1 && run.Text[0] != '\0' && !IsLoadedText(record, run.Text))
        FreeVecPooled(record->LinePool, run.Text);
}

// Line `index` is the text's last, empty and not in loaded text: the run
// that an empty line inserted at the end makes.
bool IsEmptyLastLine(const TextRecord* record, int32_t index)
{
    if (index != record->LineCount - 1 || record->RunCount == 0)
        return false;
    const LineRun& last = record->LineTable[record->RunCount - 1];
    return last.Text == EmptyLineString && last.Count == 1;
}

// Makes room for `count` runs at index `at`, moving the runs behind.
void OpenRunGap(TextRecord* record, int32_t at, int32_t count)
{
    assert(record->RunCount + count <= record->RunCapacity);
    LineRun* runs = record->LineTable;
    std::memmove(runs + at + count, runs + at, sizeof(LineRun) * static_cast<size_t>(record->RunCount - at));
    record->RunCount += count;
}

void CloseRunGap(TextRecord* record, int32_t at, int32_t count)
{
    LineRun* runs = record->LineTable;
    std::memmove(runs + at, runs + at + count,
        sizeof(LineRun) * static_cast<size_t>(record->RunCount - at - count));
    record->RunCount -= count;
}

// FirstLine of the runs from `from` on, counted from the run before.
void NumberRuns(TextRecord* record, int32_t from)
{
    LineRun* runs = record->LineTable;
    int32_t line = from > 0 ? runs[from - 1].FirstLine + runs[from - 1].Count : 0;
    for (int32_t i = from; i < record->RunCount; ++i) {
        runs[i].FirstLine = line;
        line += runs[i].Count;
    }
}

// Makes `line` (0 .. LineCount) the first line of a run, cutting the run
// that holds it in two, and gives that run's index (RunCount for
// LineCount). Uses one spare run at most.
int32_t CutRunsAt(TextRecord* record, int32_t line)
{
    if (line == record->LineCount)
        return record->RunCount;
    const int32_t run = FindRun(record, line);
    if (record->LineTable[run].FirstLine == line)
        return run;
    char* text = LineString(record, line);
    OpenRunGap(record, run + 1, 1);
    LineRun* runs = record->LineTable;
    runs[run + 1] = {text, line, runs[run].FirstLine + runs[run].Count - line};
    runs[run].Count = line - runs[run].FirstLine;
    NoteTableChanged(record);
    return run + 1;
}

// A table of `capacity` runs with the runs in use. False after
// ReportNoMemory, with the old table kept.
bool GrowLineTable(TextRecord* record, int64_t capacity)
{
    const int64_t most = INT32_MAX / int32_t{sizeof(LineRun)};
    auto* table = capacity <= most
        ? static_cast<LineRun*>(ReallocVec(record->LineTable, sizeof(LineRun) * static_cast<size_t>(capacity)))
        : nullptr;
    if (table == nullptr) {
        ReportNoMemory(record);
        return false;
    }
    record->LineTable = table;
    record->RunCapacity = static_cast<int32_t>(capacity);
    return true;
}

// Makes `text` (a pool string, or empty) the string of `line`; the old
// string is freed if the pool holds it, or given back if it ends the
// loaded text. Uses two spare runs at most.
void SetLineString(TextRecord* record, int32_t line, char* text)
{
    CutRunsAt(record, line + 1);
    const int32_t run = CutRunsAt(record, line);
    char* old = record->LineTable[run].Text;
    if (old[0] != '\0' && IsLoadedText(record, old))
        GiveBackLoadedTail(record, old, StringEnd(old));
    FreeRunString(record, record->LineTable[run]);
    record->LineTable[run].Text = text[0] != '\0' ? text : EmptyLineString;
    NoteTableChanged(record);
}

// Copies the `length` characters of a line, terminated, behind the last
// loaded one, into the newest block of loaded text or a new one, and
// counts it in the last run while that run ends where the line begins and
// has room; else the line starts a run of its own, for which the table
// grows when it must. False after ReportNoMemory, with the table
// untouched. Inlined, as a load calls it for nearly every line.
[[gnu::always_inline]] inline bool AppendLoadedLine(TextRecord* record, const char* text, int32_t length)
{
    const size_t size = static_cast<size_t>(length) + 1;
    if (!EnsureLoadedRoom(record, size))
        return false;
    const int32_t last = record->RunCount - 1;
    const bool extend = record->AppendRun == last && last >= 0 && record->LineTable[last].Count < LoadedRunLength;
    if (!extend && !EnsureLineRoom(record, StoreLineRoom))
        return false;
    LoadedTextBlock* block = record->LoadedText;
    char* string = NewestLoadedBytes(record) + block->Used;
    block->Used += size;
    if (extend) {
        ++record->LineTable[last].Count;
    } else {
        record->LineTable[record->RunCount] = {string, record->LineCount, 1};
        record->AppendRun = record->RunCount++;
    }
    ++record->LineCount;
    std::memcpy(string, text, static_cast<size_t>(length));
    string[length] = '\0';
    return true;
}

// Before lines first .. end - 1 go, over more than one run: their loaded
// strings go back, run by run from the last, for as long as each ends the
// loaded text. Pool strings and empty lines in between are passed over;
// the pool frees its own.
void GiveBackDroppedTail(TextRecord* record, int32_t first, int32_t end)
{
    for (int32_t line = end; line > first;) {
        const LineRun& holder = record->LineTable[FindRun(record, line - 1)];
        const int32_t from = std::max(first, holder.FirstLine);
        const char* last = LineString(record, line - 1);
        if (IsLoadedText(record, last)
            && !GiveBackLoadedTail(record, LineString(record, from), StringEnd(last)))
            return;
        line = from;
    }
}

} // namespace

MemPool* CreateLinePool()
{
    return CreatePool(MEMF_CLEAR, LinePoolPuddleSize, LinePoolThreshold);
}

bool CreateLineTable(TextRecord* record)
{
    record->LineTable = static_cast<LineRun*>(AllocVec(sizeof(LineRun) * InitialRunCapacity, MEMF_CLEAR));
    if (!record->LineTable)
        return false;
    record->RunCapacity = InitialRunCapacity;
    record->LineTable[0] = {EmptyLineString, 0, 1};
    record->RunCount = 1;
    record->LineCount = 1;
    NoteTableChanged(record);
    return true;
}

void FreeLineTable(TextRecord* record)
{
    EmptyLineTable(record);
    FreeVec(record->LineTable);
    record->LineTable = nullptr;
    record->RunCapacity = 0;
}

void EmptyLineTable(TextRecord* record)
{
    FreeLoadedText(record);
    record->RunCount = 0;
    record->LineCount = 0;
    NoteTableChanged(record);
}

bool EnsureLineRoom(TextRecord* record, int32_t n)
{
    assert(n > 0);
    if (record->RunCount + LineChangeRuns <= record->RunCapacity)
        return true;
    // A table that has grown large grows by half, so that a load of many
    // lines copies the table a few times only.
    return GrowLineTable(record, int64_t{record->RunCount} + LineChangeRuns + std::max(n, record->RunCount / 2));
}

bool ReserveLineRuns(TextRecord* record, int64_t runs)
{
    const int64_t needed = int64_t{record->RunCount} + runs + LineChangeRuns;
    return needed <= record->RunCapacity || GrowLineTable(record, needed);
}

bool ReserveLoadedText(TextRecord* record, size_t bytes)
{
    const LoadedTextBlock* newest = record->LoadedText;
    if (newest && newest->Size - newest->Used >= bytes)
        return true;
    auto* block = static_cast<LoadedTextBlock*>(AllocVec(sizeof(LoadedTextBlock) + bytes, MEMF_ANY));
    if (!block) {
        ReportNoMemory(record);
        return false;
    }
    *block = {record->LoadedText, bytes, 0};
    record->LoadedText = block;
    record->AppendRun = -1;
    return true;
}

bool StoreLine(TextRecord* record, char* text, int32_t index)
{
    assert(index >= 0 && index <= record->LineCount);
    const int32_t length = TrimLineEnd(text);
    if (index == record->LineCount)
        return AppendLoadedLine(record, text, length);
    if (!EnsureLineRoom(record, StoreLineRoom))
        return false;
    if (length > 0 && IsEmptyLastLine(record, index)) {
        // Line after line written at the end of the text, as by a typist
        // or a macro, joins the loaded text as a loaded file's lines do:
        // no pool string, and a run for every LoadedRunLength lines.
        if (!EnsureLoadedRoom(record, static_cast<size_t>(length) + 1))
            return false;
        --record->RunCount;
        --record->LineCount;
        record->LookupRun = -1;
        return AppendLoadedLine(record, text, length);
    }
    char* copy = EmptyLineString;
    if (length > 0) {
        copy = static_cast<char*>(AllocVecPooled(record->LinePool, static_cast<size_t>(length) + 1));
        if (copy == nullptr) {
            ReportNoMemory(record);
            return false;
        }
        std::memcpy(copy, text, static_cast<size_t>(length) + 1);
    }
    SetLineString(record, index, copy);
    return true;
}

long AppendNewlineLines(TextRecord* record, const char* bytes, size_t size)
{
    const char* at = bytes;
    const char* const end = bytes + size;
    const auto full = static_cast<size_t>(record->MaxLineLength);
    while (at < end) {
        const char* stop = FindNewlineOrZero(at, std::min(static_cast<size_t>(end - at), full));
        if (!stop || *stop != '\n')
            break;
        auto length = static_cast<int32_t>(stop - at);
        while (length > 0 && at[length - 1] == ' ')
            --length;
        if (!AppendLoadedLine(record, at, length))
            return -1;
        at = stop + 1;
    }
    return at - bytes;
}

char* LineString(const TextRecord* record, int32_t line)
{
    assert(line >= 0 && line < record->LineCount);
    const int32_t run = FindRun(record, line);
    const LineRun& found = record->LineTable[run];
    char* text = found.Text;
    int32_t at = found.FirstLine;
    if (run == record->LookupRun && record->LookupLine <= line) {
        text = record->LookupText;
        at = record->LookupLine;
    }
    for (; at < line; ++at)
        text += std::strlen(text) + 1;
    record->LookupRun = run;
    record->LookupLine = line;
    record->LookupText = text;
    return text;
}

LineWalk StartLineWalk(const TextRecord* record, int32_t line)
{
    const char* text = LineString(record, line);
    const LineRun& run = record->LineTable[record->LookupRun];
    return {record, record->LookupRun, run.FirstLine + run.Count - line, text};
}

const char* WalkLine(LineWalk* walk, size_t* length)
{
    if (walk->Left == 0) {
        const LineRun& run = walk->Record->LineTable[++walk->Run];
        walk->Next = run.Text;
        walk->Left = run.Count;
    }
    const char* text = walk->Next;
    *length = std::strlen(text);
    walk->Next = text + *length + 1;
    --walk->Left;
    return text;
}

void InsertEmptyLine(TextRecord* record, int32_t at)
{
    // A line added at the end changes no run before it, so the last line
    // found and the run that loaded lines extend stay as they are.
    const bool atEnd = at == record->LineCount;
    const int32_t run = CutRunsAt(record, at);
    OpenRunGap(record, run, 1);
    record->LineTable[run] = {EmptyLineString, at, 1};
    ++record->LineCount;
    if (atEnd)
        return;
    NumberRuns(record, run + 1);
    NoteTableChanged(record);
}

void DropLines(TextRecord* record, int32_t first, int32_t count)
{
    assert(first >= 0 && count >= 0 && first + count <= record->LineCount);
    if (count == 0)
        return;
    const int32_t end = first + count;
    const int32_t head = FindRun(record, first);
    const int32_t tail = end == record->LineCount ? record->RunCount : FindRun(record, end);
    LineRun* runs = record->LineTable;
    if (head == tail) {
        // Inside one run of loaded lines: the strings behind the range move
        // up to close the gap, so no run is added.
        char* from = LineString(record, first);
        char* behind = LineString(record, end);
        const char* runEnd = StringEnd(LineString(record, runs[head].FirstLine + runs[head].Count - 1));
        std::memmove(from, behind, static_cast<size_t>(runEnd - behind));
        runs[head].Count -= count;
        GiveBackLoadedTail(record, runEnd - (behind - from), runEnd);
    } else {
        GiveBackDroppedTail(record, first, end);
        // The head run keeps its lines before the range, the tail run its
        // lines from `end` on; the runs between go whole.
        int32_t gone = head;
        if (runs[head].FirstLine < first) {
            runs[head].Count = first - runs[head].FirstLine;
            ++gone;
        }
        if (tail < record->RunCount && runs[tail].FirstLine < end) {
            char* kept = LineString(record, end);
            runs[tail].Count -= end - runs[tail].FirstLine;
            runs[tail].Text = kept;
        }
        for (int32_t run = gone; run < tail; ++run)
            FreeRunString(record, runs[run]);
        CloseRunGap(record, gone, tail - gone);
    }
    record->LineCount -= count;
    NumberRuns(record, head);
    if (record->LineCount == 0)
        FreeLoadedText(record);
    NoteTableChanged(record);
}

void RotateLines(TextRecord* record, int32_t first, int32_t middle, int32_t end)
{
    assert(first <= middle && middle <= end && end <= record->LineCount);
    const int32_t a = CutRunsAt(record, first);
    const int32_t b = CutRunsAt(record, middle);
    const int32_t c = CutRunsAt(record, end);
    LineRun* runs = record->LineTable;
    std::rotate(runs + a, runs + b, runs + c);
    NumberRuns(record, a);
    NoteTableChanged(record);
}

void GetLineStrings(const TextRecord* record, int32_t first, int32_t count, char** strings)
{
    for (int32_t i = 0; i < count; ++i)
        strings[i] = LineString(record, first + i);
}

bool PutLineStrings(TextRecord* record, int32_t first, int32_t count, char* const* strings)
{
    if (!ReserveLineRuns(record, count))
        return false;
    const int32_t from = CutRunsAt(record, first);
    const int32_t to = CutRunsAt(record, first + count);
    const int32_t added = count - (to - from);
    if (added > 0)
        OpenRunGap(record, to, added);
    for (int32_t i = 0; i < count; ++i)
        record->LineTable[from + i] = {strings[i][0] != '\0' ? strings[i] : EmptyLineString, first + i, 1};
    NoteTableChanged(record);
    return true;
}
