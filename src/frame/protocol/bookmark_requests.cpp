#include "frame/protocol/bookmark_requests.h"

#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "text/record/text_record.h"

void ShiftBookmarks(TextRecord* record, int32_t first, int32_t delta)
{
    if (!record->MainPort)
        return;
    // Main reads the pair while this process waits, so it may live here.
    int32_t shift[2] = {first, delta};
    SendToMainWait(record, CMD_SHIFT_BOOKMARKS, reinterpret_cast<intptr_t>(shift));
}

void KillBookmarksOnLine(TextRecord* record, int32_t line)
{
    if (record->MainPort)
        SendToMainWait(record, CMD_DROP_LINE_BOOKMARKS, line);
}

void ForgetBookmarks(TextRecord* record)
{
    if (record->MainPort)
        SendToMainWait(record, CMD_DROP_BOOKMARKS, 0);
}
