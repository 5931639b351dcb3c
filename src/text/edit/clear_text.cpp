#include "frame/protocol/bookmark_requests.h"
#include "frame/window/refresh.h"
#include "frame/window/text_window_scrollers.h"
#include "requesters/file_reports.h"
#include "text/edit/ask_before_close.h"
#include "text/edit/line_operations.h"
#include "text/record/line_access.h"
#include "text/record/line_table.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <cstring>

void ClearText(TextRecord* record)
{
    const bool empty = IsOneBlankLine(record);
    if (!empty && ConfirmRequester(record, MessageId::DeleteAllText) != 1)
        return;
    if (!AskBeforeClose(record))
        return;
    DropLines(record, 0, record->LineCount);
    InsertEmptyLine(record, 0);
    ForgetBookmarks(record);
    std::memset(record->EditLine, 0, static_cast<size_t>(record->MaxLineLength) + 1);
    record->EditLength = 0;
    record->Modified = 0;
    RefreshAll(record);
    UpdateVertScroller(record);
    UpdateHorizScroller(record);
}
