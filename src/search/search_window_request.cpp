#include "search/search_window_request.h"

#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "requesters/file_reports.h"
#include "text/record/text_record.h"

bool OpenSearchWindow(TextRecord* record)
{
    if (record->MainPort && SendToMainWait(record, CMD_OPEN_SEARCH, 0))
        return true;
    ErrorRequester(record, MessageId::ErrorOpeningWindow);
    return false;
}
