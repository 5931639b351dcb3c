#include "macro/macro_command.h"

#include "macro/compiler.h"
#include "macro/evaluator.h"
#include "services/messages.h"
#include "text/record/text_record.h"
#include "frame/window/held_drawing.h"

#include <cstdio>
#include <cstring>

namespace {

void ReportFailure(TextRecord* record, MacroReport* report, int error)
{
    report->LineCount = 3;
    report->Lines[0] = GetString(MessageId{132});
    report->Lines[1] = record->MacroScratch;
    report->Lines[2] = GetString(MessageId{error});
}

} // namespace

void MacroCommandLines(TextRecord* record, char* text, MacroReport* report)
{
    const bool show = *text == '=';
    if (show)
        ++text;
    UpperCaseCommand(text);
    record->MacroScratch[0] = '\0';
    report->Pool = CommandPool{};
    report->LineCount = 0;

    MacroValue value{};
    HoldDrawing(record);
    const int error = Evaluate(record, text, &value, &report->Pool, nullptr);
    ReleaseDrawing(record);
    if (error) {
        ReportFailure(record, report, error);
        return;
    }
    if (!show)
        return;
    const char* shown = value.String;
    if (value.Kind == KindInteger) {
        char number[16];
        std::snprintf(number, sizeof number, "%ld", static_cast<long>(value.Integer));
        shown = PoolString(&report->Pool, number, std::strlen(number));
        if (!shown) {
            ReportFailure(record, report, int(MessageId::NotEnoughMemory));
            return;
        }
    }
    if (*shown == '\0')
        return;
    report->LineCount = 2;
    report->Lines[0] = GetString(MessageId{131});
    report->Lines[1] = shown;
}

void FreeMacroReport(TextRecord* record, MacroReport* report)
{
    FreeCommandPool(&report->Pool);
    report->LineCount = 0;
    record->MacroScratch[0] = '\0';
}
