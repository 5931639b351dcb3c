#include "builtins/text_arguments.h"

#include "text/record/text_record.h"

int32_t CheckedLine(const TextRecord* record, int32_t line, MacroContext* context)
{
    if (line < 1 || line > record->LineCount)
        return FailHandler(context, MessageId::IncorrectArgumentValue);
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
