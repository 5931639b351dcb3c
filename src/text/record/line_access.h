#pragma once
// Reading lines of a text. Nothing here writes to the record.
#include <cstdint>

struct TextRecord;

// Below 0 gives 0, at or above LineCount gives LineCount - 1.
int32_t ClampLine(const TextRecord* record, int32_t line);
// Below 0 gives 0, above MaxLineLength - 1 gives MaxLineLength - 1.
int32_t ClampColumn(const TextRecord* record, int32_t column);
// The current text of a line: the EditLine for CursorLine (with its padding
// and unflushed changes), else the stored string. `line` must be in use.
const char* GetLineText(const TextRecord* record, int32_t line);
// The table's string of a line; empty lines share one empty string.
// For CursorLine this may be older than the EditLine.
const char* StoredLineText(const TextRecord* record, int32_t line);
// True when the text is one line holding nothing but blanks: a text in
// which there is nothing to lose.
bool IsOneBlankLine(const TextRecord* record);
