#include "search/forward_scan.h"

#include "platform/utility/strings.h"
#include "search/search_engine.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"

#include <cstring>

namespace {

// How common a character is in text: letters by their frequency in
// English, the blank above all; other characters rank low.
int Commonness(unsigned char c)
{
    static constexpr char ByFrequency[] = "etaoinsrhldcumfpgwybvkxjqz";
    if (c == ' ')
        return 100;
    if (c >= 'A' && c <= 'Z')
        return 10;
    if (const void* at = c ? std::memchr(ByFrequency, c, sizeof ByFrequency - 1) : nullptr)
        return 90 - static_cast<int>(static_cast<const char*>(at) - ByFrequency) * 3;
    return 5;
}

// With the case ignored, a capital is as common as its small letter.
size_t LeastCommonIndex(const char* find, size_t length, uint32_t options)
{
    const bool foldCase = (options & IgnoreCase) != 0;
    auto commonness = [foldCase](char c) {
        const auto u = static_cast<unsigned char>(c);
        return Commonness(foldCase ? ToLower(u) : u);
    };
    size_t best = 0;
    for (size_t i = 1; i < length; ++i) {
        if (commonness(find[i]) < commonness(find[best]))
            best = i;
    }
    return best;
}

// The first match in the `size` bytes at `bytes`, or null. When case
// counts, memchr and memcmp are called directly rather than through
// FindFirstChar and MatchAt: a call less for every character found.
const char* FindInBytes(const char* bytes, size_t size, const char* find, size_t length, size_t rare,
    uint32_t options)
{
    const bool foldCase = (options & IgnoreCase) != 0;
    const char* end = bytes + size;
    const char* from = bytes + rare;
    while (from < end) {
        const auto left = static_cast<size_t>(end - from);
        const char* hit = foldCase ? FindFirstChar(from, left, find[rare], options)
                                   : static_cast<const char*>(std::memchr(from, find[rare], left));
        if (!hit)
            return nullptr;
        const char* start = hit - rare;
        if (start + length <= end
            && (foldCase ? MatchAt(find, start, length, options) : std::memcmp(find, start, length)) == 0)
            return start;
        from = hit + 1;
    }
    return nullptr;
}

// The loaded text's bytes in use that hold `text`; null when it isn't
// loaded text. `cache` keeps the last block found, as runs follow one
// another in the same block.
const LoadedTextBlock* BlockOf(const TextRecord* record, const char* text, const LoadedTextBlock** cache)
{
    auto holds = [text](const LoadedTextBlock* block) {
        const auto* start = reinterpret_cast<const char*>(block + 1);
        return text >= start && text < start + block->Used;
    };
    if (*cache && holds(*cache))
        return *cache;
    for (const LoadedTextBlock* block = record->LoadedText; block; block = block->Next) {
        if (holds(block))
            return *cache = block;
    }
    return nullptr;
}

// The bytes to search for run `run`, from `text`, the first of its
// `count` strings, up to the returned end. A load puts runs one behind the
// other in its block, so when the next run starts further on in the same
// block, the bytes up to it are taken at once, without a strlen per line:
// they begin with this run's strings, and may go on with old copies of
// deleted lines, which the caller tells apart by counting line ends.
const char* RunBytesEnd(const TextRecord* record, int32_t run, const char* text, int32_t count,
    const LoadedTextBlock** cache)
{
    const char* next = run + 1 < record->RunCount ? record->LineTable[run + 1].Text : nullptr;
    const LoadedTextBlock* block = next ? BlockOf(record, text, cache) : nullptr;
    if (block && next > text && next <= reinterpret_cast<const char*>(block + 1) + block->Used)
        return next;
    for (int32_t i = 0; i < count; ++i)
        text += std::strlen(text) + 1;
    return text;
}

} // namespace

SearchMatch MatchInStrings(const char* bytes, const char* found, int32_t line)
{
    const char* start = bytes;
    for (const char* end; (end = static_cast<const char*>(std::memchr(start, 0, static_cast<size_t>(found - start))));) {
        start = end + 1;
        ++line;
    }
    return {line, static_cast<int32_t>(found - start)};
}

bool ScanLinesForward(const TextRecord* record, int32_t line, const char* find, size_t length,
    SearchMatch* match)
{
    if (line >= record->LineCount)
        return false;
    const uint32_t options = record->Options;
    const size_t rare = LeastCommonIndex(find, length, options);
    // The walk starts on the line before, the cursor's: the table keeps the
    // line it last looked up, and the cursor's line is the one stored when
    // the cursor moves to the match, so finding it again costs nothing.
    LineWalk walk = StartLineWalk(record, line > 0 ? line - 1 : line);
    if (line > 0) {
        size_t skipped = 0;
        WalkLine(&walk, &skipped);
    }
    int32_t run = walk.Run;
    const char* text = walk.Next;
    int32_t count = walk.Left;
    if (count == 0) {
        text = record->LineTable[++run].Text;
        count = record->LineTable[run].Count;
    }
    const LoadedTextBlock* cache = nullptr;
    for (;;) {
        const char* end = RunBytesEnd(record, run, text, count, &cache);
        if (const char* found = FindInBytes(text, static_cast<size_t>(end - text), find, length, rare, options)) {
            // A match behind the run's last line end lies in an old copy.
            const SearchMatch at = MatchInStrings(text, found, line);
            if (at.Line - line < count) {
                *match = at;
                return true;
            }
        }
        line += count;
        if (++run >= record->RunCount)
            return false;
        text = record->LineTable[run].Text;
        count = record->LineTable[run].Count;
    }
}
