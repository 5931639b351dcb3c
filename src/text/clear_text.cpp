#include "files/file_reports.h"
#include "frame/text_process.h"
#include "frame/text_window_scrollers.h"
#include "text/bookmark_requests.h"
#include "text/line_access.h"
#include "text/line_operations.h"
#include "text/line_strings.h"
#include "text/line_table.h"
#include "text/render.h"
#include "text/text_record.h"

#include <cstring>

void ClearText(TextRecord* record)
{
    const bool empty = record->LineCount == 1 && IsBlankText(GetLineText(record, 0));
    if (!empty && ConfirmRequester(record, MessageId{67}) != 1)
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
