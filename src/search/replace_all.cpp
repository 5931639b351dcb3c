#include "search/replace_all.h"

#include "frame/protocol/last_edit.h"
#include "frame/window/refresh.h"
#include "frame/window/status.h"
#include "frame/window/text_window.h"
#include "platform/display/intuition.h"
#include "requesters/file_reports.h"
#include "search/search_cursor.h"
#include "search/search_engine.h"
#include "search/search_window_request.h"
#include "text/edit/viewport.h"
#include "text/lines/edit_line.h"
#include "text/record/text_record.h"

#include <cstring>

namespace {

enum class Stop {
    NotFound,
    TooLong,
    NoMemory
};

// Whether replacing `length` characters at the cursor by `replacement`
// leaves the line as a store would see it: the same bytes, or the same
// bytes followed only by spaces at the line's end.
bool LeavesLineAsStored(const TextRecord* record, const char* replacement, size_t replacementLength,
    size_t length)
{
    const char* at = record->EditLine + record->CursorColumn;
    if (replacementLength < length || std::memcmp(at, replacement, length) != 0)
        return false;
    for (size_t i = length; i < replacementLength; ++i) {
        if (replacement[i] != ' ')
            return false;
    }
    return replacementLength == length
        || static_cast<size_t>(record->CursorColumn) + length == static_cast<size_t>(record->EditLength);
}

struct Pass {
    int32_t Count = 0;
    bool Changed = false;
    SearchMatch LastChange{};
};

Stop ReplaceInBatch(TextRecord* record, int direction, const char* find, const char* replacement, Pass* pass)
{
    const size_t length = std::strlen(find);
    const size_t replacementLength = std::strlen(replacement);
    for (;;) {
        SearchMatch match{};
        if (!FindMatch(record, direction, find, length, &match))
            return Stop::NotFound;
        if (MoveToMatch(record, match) == EditLineStore::Failed)
            return Stop::NoMemory;
        PlaceViewportAtCursor(record);
        const bool unchanged = LeavesLineAsStored(record, replacement, replacementLength, length);
        if (!ReplaceInEditLine(record, replacement, static_cast<int32_t>(length)))
            return Stop::TooLong;
        ++pass->Count;
        if (!unchanged) {
            pass->Changed = true;
            pass->LastChange = match;
        }
    }
}

} // namespace

int32_t ReplaceAll(TextRecord* record, int direction, const char* find, const char* replacement)
{
    if (!find[0]) {
        OpenSearchWindow(record);
        return 0;
    }
    if (!EnsureWindow(record))
        return 0;
    ShowBusyPointer(record);
    if (!FlushEditLine(record))
        return 0;
    SetStatusMessage(record, MessageId::Searching);
    const bool wasBatch = (record->TextState & Batch) != 0;
    record->TextState |= Batch;
    Pass pass;
    Stop stop = ReplaceInBatch(record, direction, find, replacement, &pass);
    if (!wasBatch)
        record->TextState &= static_cast<uint16_t>(~Batch);
    if (stop != Stop::NoMemory)
        StoreEditLine(record);
    if (pass.Changed)
        NoteLastEditAt(record, pass.LastChange.Line, pass.LastChange.Column);
    if (!FollowCursor(record, true))
        RefreshAll(record);
    if (stop == Stop::NotFound)
        DisplayBeep(nullptr);
    UpdateStatusTitle(record);
    if (stop == Stop::TooLong)
        ErrorRequester(record, MessageId::ReplacementTooLong);
    return pass.Count;
}
