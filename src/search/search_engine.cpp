#include "search/search_engine.h"

#include "frame/window/refresh.h"
#include "frame/window/status.h"
#include "frame/window/text_window.h"
#include "platform/display/intuition.h"
#include "platform/utility/strings.h"
#include "requesters/file_reports.h"
#include "search/forward_scan.h"
#include "search/search_cursor.h"
#include "search/search_window_request.h"
#include "text/edit/viewport.h"
#include "text/lines/edit_line.h"
#include "text/record/line_strings.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"

#include <algorithm>
#include <cstring>

namespace {

// The first match in `text` (of `length` characters) starting at `from` or
// later; -1 when there is none.
int32_t MatchForward(const char* text, size_t length, size_t from, const char* find, size_t findLength,
    uint32_t options)
{
    while (from + findLength <= length) {
        const char* place = FindFirstChar(text + from, length - findLength + 1 - from, find[0], options);
        if (!place)
            return -1;
        if (MatchAt(find, place, findLength, options) == 0)
            return static_cast<int32_t>(place - text);
        from = static_cast<size_t>(place - text) + 1;
    }
    return -1;
}

// The last match in `text` (of `length` characters) starting at `from` or
// earlier; -1 when there is none.
int64_t MatchBackward(const char* text, size_t length, size_t from, const char* find, size_t findLength,
    uint32_t options)
{
    if (findLength > length)
        return -1;
    size_t end = std::min(from, length - findLength) + 1;
    while (const char* place = FindLastChar(text, end, find[0], options)) {
        if (MatchAt(find, place, findLength, options) == 0)
            return place - text;
        end = static_cast<size_t>(place - text);
    }
    return -1;
}

// The last match in the stored lines from `line` up to the first, a run at
// a time: a run's strings lie one behind the other, so its bytes up to the
// end of its last line wanted are searched as one, and the line ends
// before a match give its line. A find text holds no NUL, so a match never
// reaches across a line end.
bool ScanLinesBackward(const TextRecord* record, int32_t line, const char* find, size_t length, SearchMatch* match)
{
    while (line >= 0) {
        const LineWalk walk = StartLineWalk(record, line);
        const LineRun& run = record->LineTable[walk.Run];
        const char* bytes = run.Text;
        const auto size = static_cast<size_t>(walk.Next - bytes) + std::strlen(walk.Next);
        const int64_t found = MatchBackward(bytes, size, size, find, length, record->Options);
        if (found >= 0) {
            *match = MatchInStrings(bytes, bytes + found, run.FirstLine);
            return true;
        }
        line = run.FirstLine - 1;
    }
    return false;
}

bool FindForward(const TextRecord* record, const char* find, size_t length, SearchMatch* match)
{
    const uint32_t options = record->Options;
    const auto cursorLength = static_cast<size_t>(VisibleLength(record->EditLine));
    // The first position tried is the one behind the cursor: a match at
    // the cursor itself was found before.
    const size_t from = static_cast<size_t>(record->CursorColumn) + 1;
    if (from < cursorLength) {
        int32_t column = MatchForward(record->EditLine, cursorLength, from, find, length, options);
        if (column >= 0) {
            *match = {record->CursorLine, column};
            return true;
        }
    }
    return ScanLinesForward(record, record->CursorLine + 1, find, length, match);
}

bool FindBackward(const TextRecord* record, const char* find, size_t length, SearchMatch* match)
{
    const uint32_t options = record->Options;
    const auto cursorLength = static_cast<size_t>(VisibleLength(record->EditLine));
    // A cursor behind the line's end searches from the end.
    const int64_t column = std::min<int64_t>(record->CursorColumn, static_cast<int64_t>(cursorLength));
    if (column > 0) {
        const int64_t found = MatchBackward(record->EditLine, cursorLength, static_cast<size_t>(column - 1), find, length, options);
        if (found >= 0) {
            *match = {record->CursorLine, static_cast<int32_t>(found)};
            return true;
        }
    }
    return ScanLinesBackward(record, record->CursorLine - 1, find, length, match);
}

} // namespace

const char* FindFirstChar(const char* text, size_t length, char c, uint32_t options)
{
    if (!(options & IgnoreCase))
        return static_cast<const char*>(std::memchr(text, c, length));
    const unsigned char upper = ToUpper(static_cast<unsigned char>(c));
    for (size_t i = 0; i < length; ++i) {
        if (ToUpper(static_cast<unsigned char>(text[i])) == upper)
            return text + i;
    }
    return nullptr;
}

const char* FindLastChar(const char* text, size_t length, char c, uint32_t options)
{
    if (!(options & IgnoreCase))
        return static_cast<const char*>(memrchr(text, c, length));
    const unsigned char upper = ToUpper(static_cast<unsigned char>(c));
    for (size_t i = length; i > 0; --i) {
        if (ToUpper(static_cast<unsigned char>(text[i - 1])) == upper)
            return text + i - 1;
    }
    return nullptr;
}

int MatchAt(const char* find, const char* place, size_t length, uint32_t options)
{
    if (options & IgnoreCase)
        return Strnicmp(find, place, length);
    return std::memcmp(find, place, length);
}

bool FindMatch(const TextRecord* record, int direction, const char* find, size_t length, SearchMatch* match)
{
    if (length == 0)
        return false;
    return direction < 0 ? FindBackward(record, find, length, match) : FindForward(record, find, length, match);
}

bool ReplaceInEditLine(TextRecord* record, const char* replacement, int32_t length)
{
    const auto replacementLength = static_cast<int32_t>(std::strlen(replacement));
    const int32_t oldLength = record->EditLength;
    const int32_t newLength = oldLength + replacementLength - length;
    if (newLength > record->MaxLineLength)
        return false;
    char* at = record->EditLine + record->CursorColumn;
    std::memmove(at + replacementLength, at + length, static_cast<size_t>(oldLength - record->CursorColumn - length) + 1);
    std::memcpy(at, replacement, static_cast<size_t>(replacementLength));
    // A shorter line leaves old bytes behind its terminator; the EditLine
    // is kept zeroed there.
    if (newLength < oldLength)
        std::memset(record->EditLine + newLength + 1, 0, static_cast<size_t>(oldLength - newLength));
    record->EditLength = newLength;
    return true;
}

bool ReplaceAtCursor(TextRecord* record, const char* replacement, int32_t length)
{
    if (!ReplaceInEditLine(record, replacement, length)) {
        ErrorRequester(record, MessageId::ReplacementTooLong);
        return false;
    }
    RefreshCursorLine(record);
    UpdateStatusTitle(record);
    return true;
}

bool Search(TextRecord* record, int direction, bool replace, const char* find, const char* replacement)
{
    if (!find[0]) {
        OpenSearchWindow(record);
        return false;
    }
    if (!EnsureWindow(record))
        return false;
    ShowBusyPointer(record);
    if (!FlushEditLine(record))
        return false;
    SetStatusMessage(record, MessageId::Searching);
    const size_t length = std::strlen(find);
    SearchMatch match{};
    if (!FindMatch(record, direction, find, length, &match)) {
        DisplayBeep(nullptr);
        UpdateStatusTitle(record);
        return false;
    }
    if (MoveToMatch(record, match) == EditLineStore::Failed)
        return false;
    FollowCursor(record, true);
    if (!replace) {
        UpdateStatusTitle(record);
        return true;
    }
    return ReplaceAtCursor(record, replacement, static_cast<int32_t>(length));
}
