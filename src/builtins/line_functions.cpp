// Lines going in, out, apart, together and into order.
#include "builtins/text_arguments.h"
#include "builtins/text_functions.h"
#include "macro/evaluator.h"
#include "text/edit/cursor_placing.h"
#include "text/edit/line_operations.h"
#include "text/record/text_record.h"

int32_t InsLinesBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    TextRecord* record = context->Text;
    const int32_t count = stack->Values[slot].Integer;
    int32_t inserted = 0;
    while (inserted < count && InsertLineBefore(record))
        ++inserted;
    return IntegerResult(slot, inserted, stack);
}

int32_t SupLinesBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    TextRecord* record = context->Text;
    Repeat(record, stack->Values[slot].Integer, [record] { DeleteLine(record); });
    return IntegerResult(slot, record->LineCount, stack);
}

int32_t CutLineBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const bool indent = (stack->Values[slot].Integer & 0xFFFF) != 0;
    return IntegerResult(slot, SplitLine(context->Text, indent) ? 1 : 0, stack);
}

int32_t CatLinesBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    TextRecord* record = context->Text;
    const int32_t line = CheckedLine(record, stack->Values[slot].Integer, context);
    if (line < 0)
        return -1;
    SetCursor(record, ColumnIndex(record->CursorColumn), LineIndex(line));
    return IntegerResult(slot, JoinNextLine(record) ? 1 : 0, stack);
}

int32_t SortBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    TextRecord* record = context->Text;
    const int32_t direction = stack->Values[slot].Integer;
    int32_t at = slot;
    const int32_t first = CheckedLine(record, NextIntegerArgument(&at, stack, context), context);
    if (context->Error)
        return -1;
    const int32_t last = CheckedLine(record, NextIntegerArgument(&at, stack, context), context);
    if (context->Error)
        return -1;
    if (direction == 0 || last <= first)
        return IntegerResult(slot, 0, stack);
    return IntegerResult(slot, SortLines(record, first, last, direction), stack);
}
