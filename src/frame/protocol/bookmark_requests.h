#pragma once
// Keeping the main process's bookmarks of a text in step with its lines.
// Each is a synchronous request: the text waits, so main may clamp against
// its LineCount meanwhile. A text that has no main process to ask (no
// MainPort) has no bookmarks, and the requests do nothing.
#include <cstdint>

struct TextRecord;

// Every bookmark of the text on a line at or below `first` moves by `delta`
// lines, clamped to the text's lines: one pushed past the end lands on the
// last line.
void ShiftBookmarks(TextRecord* record, int32_t first, int32_t delta);
// Every bookmark of the text on `line` is freed.
void KillBookmarksOnLine(TextRecord* record, int32_t line);
// Every bookmark of the text is freed.
void ForgetBookmarks(TextRecord* record);
