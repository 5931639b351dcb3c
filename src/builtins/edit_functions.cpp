// Writing and deleting at the cursor, and the modes of editing. Each of
// these gives the cursor's new column.
#include "builtins/text_arguments.h"
#include "builtins/text_functions.h"
#include "config/build_menus.h"
#include "config/menu_table.h"
#include "macro/command_pool.h"
#include "text/edit/edit_current_line.h"
#include "text/lines/edit_line.h"
#include "text/record/text_record.h"

#include <algorithm>
#include <cstring>

namespace {

// Runs `step` as often as the argument says and gives the new column.
template <typename Step>
int32_t RepeatAtCursor(int32_t slot, MacroStack* stack, MacroContext* context, Step step)
{
    TextRecord* record = context->Text;
    Repeat(record, stack->Values[slot].Integer, [record, step] { step(record); });
    return IntegerResult(slot, CursorColumnValue(record), stack);
}

} // namespace

int32_t WriteBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    // InsertTextLines cuts the text at its newlines in place: it works on a
    // copy, as the string may be a variable's or a user function's.
    const char* given = stack->Values[slot].String;
    char* text = PoolString(context->Pool, given, std::strlen(given));
    if (!text)
        return FailHandler(context, MessageId::NotEnoughMemory);
    return IntegerResult(slot, InsertTextLines(context->Text, text, false), stack);
}

int32_t WriteTabBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    // A negative count moves over what is there instead of inserting.
    const int32_t count = stack->Values[slot].Integer;
    const bool moveOnly = count < 0;
    stack->Values[slot].Integer = moveOnly ? static_cast<int32_t>(std::min<int64_t>(-int64_t{count}, INT32_MAX)) : count;
    return RepeatAtCursor(slot, stack, context, [moveOnly](TextRecord* r) { TabForward(r, moveOnly); });
}

int32_t DelCharsBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return RepeatAtCursor(slot, stack, context, DeleteChar);
}

int32_t DelPrevBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return RepeatAtCursor(slot, stack, context, DeleteBack);
}

int32_t DelLeftBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return RepeatAtCursor(slot, stack, context, DeleteWordBack);
}

int32_t DelRightBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return RepeatAtCursor(slot, stack, context, DeleteWordForward);
}

int32_t DelBeginBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    DeleteToLineStart(context->Text);
    return IntegerResult(slot, CursorColumnValue(context->Text), stack);
}

int32_t DelEndBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    DeleteToLineEnd(context->Text);
    return IntegerResult(slot, CursorColumnValue(context->Text), stack);
}

int32_t ModEditBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    TextRecord* record = context->Text;
    const int32_t old = static_cast<int32_t>(record->Options & InsertMode);
    const bool insert = stack->Values[slot].Integer != 0;
    if (insert != (old != 0))
        ToggleInsertMode(record);
    SetMenuCheck(record, InsertModeItem, insert);
    return IntegerResult(slot, old, stack);
}

int32_t ModifBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    // A change still in the EditLine counts.
    FlushEditLine(context->Text);
    return IntegerResult(slot, context->Text->Modified, stack);
}
