// The find and replace texts and the case option. The texts are the main
// process's, shared by every text and by the search window's commands;
// a text without a main process has none to read or set.
#include "builtins/text_arguments.h"
#include "builtins/text_functions.h"
#include "config/build_menus.h"
#include "config/menu_table.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "platform/exec/memory.h"
#include "text/record/settings.h"
#include "text/record/text_record.h"

#include <cstring>

namespace {

// The main process's string of `code` (CMD_GET_FIND, CMD_GET_REPLACE) as
// the value at `slot`; "Not enough memory" when no copy came.
int32_t MainString(int32_t slot, int16_t code, MacroStack* stack, MacroContext* context)
{
    TextRecord* record = context->Text;
    auto* copy = record->MainPort ? reinterpret_cast<char*>(SendToMainWait(record, code, 0)) : nullptr;
    if (!copy)
        return FailHandler(context, MessageId::NotEnoughMemory);
    const int32_t result = StringResult(slot, copy, stack, context);
    FreeVec(copy);
    return result;
}

// Gives the old string of `getCode` and stores the argument by `setCode`;
// main copies it while this text waits.
int32_t ExchangeMainString(int32_t slot, int16_t getCode, int16_t setCode, MacroStack* stack, MacroContext* context)
{
    const char* given = stack->Values[slot].String;
    if (MainString(slot, getCode, stack, context) < 0)
        return -1;
    SendToMainWait(context->Text, setCode, reinterpret_cast<intptr_t>(given));
    return slot;
}

} // namespace

int32_t GetFindBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return MainString(slot, CMD_GET_FIND, stack, context);
}

int32_t GetRepBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return MainString(slot, CMD_GET_REPLACE, stack, context);
}

int32_t SetFindBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return ExchangeMainString(slot, CMD_GET_FIND, CMD_SET_FIND, stack, context);
}

int32_t SetRepBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return ExchangeMainString(slot, CMD_GET_REPLACE, CMD_SET_REPLACE, stack, context);
}

int32_t TestCaseBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    TextRecord* record = context->Text;
    const int32_t wanted = stack->Values[slot].Integer;
    const int32_t old = Settings.Flags & IgnoreCase;
    if (wanted >= 0) {
        if (wanted == 0)
            record->Options |= IgnoreCase;
        else
            record->Options &= ~IgnoreCase;
        SetMenuCheck(record, IgnoreCaseItem, (record->Options & IgnoreCase) != 0);
        if (record->MainPort)
            SendToMain(record, CMD_CASE_CHANGED, static_cast<intptr_t>(record->Options & IgnoreCase));
    }
    return IntegerResult(slot, old, stack);
}
