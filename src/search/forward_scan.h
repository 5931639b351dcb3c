#pragma once
// The fast forward scan of a search: it looks at the table's runs of lines
// as blocks of bytes, not line by line.
#include <cstddef>
#include <cstdint>

struct TextRecord;
struct SearchMatch;

// The first match of the `length` characters of `find` (no NUL among
// them) in the stored lines from `line` on, into `match`; false when there
// is none. The case is ignored under IgnoreCase in the record's Options.
//
// A run's strings lie one behind the other, each ended by a NUL, and a
// find text holds no NUL, so a match found in the run's bytes lies inside
// one line. The bytes are searched for the find text's least common
// character (with memchr when case counts), and the whole text is
// compared only there: in a text of words, the first character of a word
// is often among the most common ones, which would stop the scan every few
// bytes.
bool ScanLinesForward(const TextRecord* record, int32_t line, const char* find, size_t length,
    SearchMatch* match);

// Where `found` lies in the strings that follow one another from `bytes`
// on, the first of them line `line`: the line ends before it give its
// line and column.
SearchMatch MatchInStrings(const char* bytes, const char* found, int32_t line);
