// Where the cursor stands and moving it.
#include "builtins/text_arguments.h"
#include "builtins/text_functions.h"
#include "macro/evaluator.h"
#include "text/edit/cursor_motion.h"
#include "text/edit/cursor_placing.h"
#include "text/edit/pick_position.h"
#include "text/record/line_strings.h"
#include "text/record/text_record.h"

namespace {

// Moves the cursor to column 0 of the checked line `line`; false after
// the range error.
bool CursorToLine(int32_t line, MacroContext* context)
{
    const int32_t index = CheckedLine(context->Text, line, context);
    if (index < 0)
        return false;
    SetCursor(context->Text, ColumnIndex(0), LineIndex(index));
    return true;
}

// Lets the user point at a place in the text; 0 when the user refused.
int32_t Pick(int32_t slot, MacroStack* stack, MacroContext* context, bool line)
{
    TextRecord* record = context->Text;
    if (PickPosition(record, stack->Values[slot].String) < 0)
        return IntegerResult(slot, 0, stack);
    return IntegerResult(slot, line ? CursorLineValue(record) : CursorColumnValue(record), stack);
}

} // namespace

int32_t LineBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return IntegerResult(slot, CursorLineValue(context->Text), stack);
}

int32_t ColBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return IntegerResult(slot, CursorColumnValue(context->Text), stack);
}

int32_t NbLinesBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return IntegerResult(slot, context->Text->LineCount, stack);
}

int32_t GotoBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    TextRecord* record = context->Text;
    const int32_t column = stack->Values[slot].Integer;
    if (!CheckedColumnCount(record, column, context))
        return -1;
    int32_t at = slot;
    const int32_t line = CheckedLine(record, NextIntegerArgument(&at, stack, context), context);
    if (context->Error)
        return -1;
    SetCursor(record, ColumnIndex(column - 1), LineIndex(line));
    return StringResult(slot, record->EditLine, static_cast<size_t>(VisibleLength(record->EditLine)), stack, context);
}

int32_t BegLineBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    if (!CursorToLine(stack->Values[slot].Integer, context))
        return -1;
    CursorFirstNonBlank(context->Text);
    return IntegerResult(slot, CursorColumnValue(context->Text), stack);
}

int32_t EndLineBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    if (!CursorToLine(stack->Values[slot].Integer, context))
        return -1;
    CursorLineEnd(context->Text);
    return IntegerResult(slot, CursorColumnValue(context->Text), stack);
}

int32_t WordLeftBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    TextRecord* record = context->Text;
    Repeat(record, stack->Values[slot].Integer, [record] { CursorWordLeft(record); });
    return IntegerResult(slot, CursorLineValue(record), stack);
}

int32_t WordRightBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    TextRecord* record = context->Text;
    const int32_t count = stack->Values[slot].Integer;
    // From the last word of the last line the cursor goes back to that
    // line's first word, so from there on the moves go round the line:
    // once a round is measured, only the rest of the count modulo a round
    // is walked, and a count of a billion ends at once where it would end.
    int32_t firstWrap = -1;
    for (int32_t done = 0; done < count; ++done) {
        const TextMark before = MarkOf(record);
        CursorWordRight(record);
        const TextMark after = MarkOf(record);
        if (after.Line == before.Line && after.Column == before.Column)
            break;
        if (after.Line != before.Line || after.Column > before.Column)
            continue;
        if (firstWrap < 0) {
            firstWrap = done;
            continue;
        }
        Repeat(record, (count - done - 1) % (done - firstWrap), [record] { CursorWordRight(record); });
        break;
    }
    return IntegerResult(slot, CursorLineValue(record), stack);
}

int32_t PickColBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return Pick(slot, stack, context, false);
}

int32_t PickLineBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return Pick(slot, stack, context, true);
}
