#include "frame/app_globals.h"
#include "frame/close_question.h"
#include "frame/text_process.h"
#include "frame/text_window.h"
#include "text/edit_line.h"
#include "text/line_strings.h"
#include "text/reset_text.h"
#include "text/text_record.h"

bool AskBeforeClose(TextRecord* record)
{
    // A line that can't be stored keeps the text open: closing would lose it.
    if (!FlushEditLine(record))
        return false;
    bool unchanged = !record->Modified || (record->LineCount == 1 && IsBlankText(record->EditLine));
    if (!unchanged) {
        RaiseTextWindow(record);
        CloseQuestion question = InstalledCloseQuestion();
        if (!question || !question(record))
            return false;
    }
    ResetText(record, Globals.DefaultFileName);
    return true;
}
