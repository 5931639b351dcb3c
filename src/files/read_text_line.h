#pragma once
// Cutting a file into the lines of a text.
#include <cstdint>

struct TextRecord;

// The negative results of ReadTextLine.
constexpr int32_t EndOfText = -1;
constexpr int32_t ReadFailed = -2;

// Builds the next line of the file `fd` in the EditLine, through the
// record's file buffer (FileBuffer of FileBufferSize bytes, FileLimit bytes
// read, FilePosition the next to take, FileCursor the next tab in the
// buffer or its end; a load starts with FileLimit 0 and FilePosition
// FileBufferSize, so that the first call fills the buffer and sets
// FileCursor). Gives the line's length, terminated at that
// length; EndOfText at the end of the file; ReadFailed after a read error,
// reported with "Loading file".
//
// A newline ends a line and is not stored; a final line without one still
// counts. A tab becomes spaces up to the next multiple of 8, whatever the
// text's TabSize. Every other byte is stored as it is, a carriage return
// or a zero byte included (StoreLine then ends the string at the zero).
// A line ends when it holds MaxLineLength characters: the rest of the
// source line becomes the next line, nothing lost but the unfinished
// spaces of a tab. When the byte after a full line is a newline it is
// consumed, also when it lies in the next block, so a source line of
// exactly MaxLineLength characters gives no empty line behind it.
// Trailing spaces are kept; storing the line trims them.
int32_t ReadTextLine(TextRecord* record, int fd);
