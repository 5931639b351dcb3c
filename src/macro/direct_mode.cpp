#include "macro/direct_mode.h"

#include "macro/function_table.h"
#include "macro/run_macro_command.h"
#include "requesters/input_requesters.h"
#include "text/record/text_record.h"

#include <vector>

namespace {

// A negative limit adds the button of the list of functions; the buffer
// keeps its terminator.
int AskMacro(TextRecord* record, char* buffer, int size)
{
    int limit = -size;
    return InputRequesterId(record, MessageId::MacroCommand, buffer, &limit);
}

} // namespace

void DirectModeCommand(TextRecord* record)
{
    if (AskMacro(record, record->MacroCommandText, sizeof record->MacroCommandText) == 1)
        RunMacroCommand(record, record->MacroCommandText);
}

void AskClickMacro(TextRecord* record)
{
    AskMacro(record, record->ClickMacroText, sizeof record->ClickMacroText);
}

void InstallFunctionList()
{
    // Row n of the list is row n + 1 of the table: row 0 is no function.
    static const std::vector<const char*> usages = [] {
        std::vector<const char*> lines;
        for (int32_t row = 1; row < MacroFunctionCount(); ++row)
            lines.push_back(MacroFunctionRow(row).Usage);
        return lines;
    }();
    SetFunctionUsages(static_cast<int>(usages.size()), usages.data());
}
