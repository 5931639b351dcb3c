#include "text/edit/ask_before_close.h"
#include "frame/protocol/app_globals.h"
#include "frame/window/text_window.h"
#include "requesters/close_question.h"
#include "text/edit/reset_text.h"
#include "text/lines/edit_line.h"
#include "text/record/line_access.h"
#include "text/record/text_record.h"

bool AskBeforeClose(TextRecord* record)
{
    // A line that can't be stored keeps the text open: closing would lose it.
    if (!FlushEditLine(record))
        return false;
    bool unchanged = !record->Modified || IsOneBlankLine(record);
    if (!unchanged) {
        RaiseTextWindow(record);
        CloseQuestion question = InstalledCloseQuestion();
        if (!question || !question(record))
            return false;
    }
    ResetText(record, Globals.DefaultFileName);
    return true;
}
