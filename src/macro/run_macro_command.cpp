#include "macro/run_macro_command.h"

#include "macro/macro_command.h"
#include "requesters/message_requesters.h"

void RunMacroCommand(TextRecord* record, char* text)
{
    MacroReport report;
    MacroCommandLines(record, text, &report);
    if (report.LineCount == 2)
        MessageRequester(record, 2, report.Lines[0], report.Lines[1]);
    else if (report.LineCount == 3)
        MessageRequester(record, 3, report.Lines[0], report.Lines[1], report.Lines[2]);
    FreeMacroReport(record, &report);
}
