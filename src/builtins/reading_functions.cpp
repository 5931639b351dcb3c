// Reading the text: a line, characters at the cursor, the word there.
#include "builtins/text_arguments.h"
#include "builtins/text_functions.h"
#include "text/edit/edit_current_line.h"
#include "text/record/char_class.h"
#include "text/record/line_access.h"
#include "text/record/text_record.h"

#include <cstring>

int32_t ReadLineBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const int32_t line = CheckedLine(context->Text, stack->Values[slot].Integer, context);
    if (line < 0)
        return -1;
    const char* text = GetLineText(context->Text, line);
    return StringResult(slot, text, stack, context);
}

int32_t ReadCharBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const TextRecord* record = context->Text;
    const int32_t count = stack->Values[slot].Integer;
    if (!CheckedColumnCount(record, count, context))
        return -1;
    const char* from = record->EditLine + record->CursorColumn;
    return StringResult(slot, from, strnlen(from, static_cast<size_t>(count)), stack, context);
}

int32_t CurrWordBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const TextRecord* record = context->Text;
    const char* at = record->EditLine + record->CursorColumn;
    char word[WordAtLimit + 1] = "";
    int32_t length = 0;
    if (CharClass[static_cast<unsigned char>(*at)] & CharWordLetter)
        length = WordAt(at, word);
    return StringResult(slot, word, static_cast<size_t>(length), stack, context);
}
