#include "builtins/text_arguments.h"

#include "macro/command_pool.h"
#include "text/record/text_record.h"

int32_t FailWith(MacroContext* context, MessageId id)
{
    SetMacroError(context, id);
    return -1;
}

int32_t IntegerValue(int32_t slot, int32_t value, MacroStack* stack)
{
    stack->Values[slot].Kind = KindInteger;
    stack->Values[slot].Integer = value;
    return slot;
}

int32_t StringValue(int32_t slot, const char* text, int32_t length, MacroStack* stack, MacroContext* context)
{
    char* copy = PoolString(context->Pool, text, static_cast<size_t>(length));
    if (!copy)
        return FailWith(context, MessageId::NotEnoughMemory);
    stack->Values[slot].Kind = KindString;
    stack->Values[slot].String = copy;
    return slot;
}

int32_t CheckedLine(const TextRecord* record, int32_t line, MacroContext* context)
{
    if (line < 1 || line > record->LineCount)
        return FailWith(context, MessageId::IncorrectArgumentValue);
    return line - 1;
}

bool CheckedColumnCount(const TextRecord* record, int32_t count, MacroContext* context)
{
    if (count >= 1 && count <= record->MaxLineLength)
        return true;
    SetMacroError(context, MessageId::IncorrectArgumentValue);
    return false;
}

int32_t CursorColumnValue(const TextRecord* record)
{
    return record->CursorColumn + 1;
}

int32_t CursorLineValue(const TextRecord* record)
{
    return record->CursorLine + 1;
}

TextMark MarkOf(const TextRecord* record)
{
    return {record->CursorLine, record->CursorColumn, record->EditLength, record->LineCount};
}
