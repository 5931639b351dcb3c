// The block: marking it, reading it, deleting it, and where it lies.
#include "builtins/text_arguments.h"
#include "builtins/text_functions.h"
#include "macro/command_pool.h"
#include "text/edit/block_marking.h"
#include "text/edit/block_operations.h"
#include "text/record/block_span.h"
#include "text/record/text_record.h"

int32_t MarkBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    TextRecord* record = context->Text;
    // Below 1 a new block starts, one character long, at the cursor.
    if (stack->Values[slot].Integer < 1)
        MarkText(record, " ");
    else
        ExtendBlock(record);
    return slot;
}

int32_t UnmarkBuiltin(int32_t slot, MacroStack*, MacroContext* context)
{
    UnmarkBlock(context->Text);
    return slot;
}

int32_t SupBlockBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    // Without a block there is nothing to report: the value says so.
    TextRecord* record = context->Text;
    const bool deleted = (record->TextState & BlockMarked) && DeleteBlock(record);
    return IntegerResult(slot, deleted ? 1 : 0, stack);
}

int32_t TextSelBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const TextRecord* record = context->Text;
    if (!(record->TextState & BlockMarked))
        return StringResult(slot, "", 0, stack, context);
    const int32_t length = BlockTextLength(record);
    char* text = PoolAllocate(context->Pool, static_cast<size_t>(length) + 1);
    if (!text)
        return FailHandler(context, MessageId::NotEnoughMemory);
    CopyBlockText(record, text, length);
    text[length] = '\0';
    stack->Values[slot].Kind = KindString;
    stack->Values[slot].String = text;
    return slot;
}

int32_t BlockBuiltin(int32_t slot, MacroStack* stack, MacroContext* context)
{
    BlockSpan span{};
    if (GetBlock(context->Text, &span) == 0)
        return IntegerResult(slot, 0, stack);
    switch (stack->Values[slot].Integer) {
    case 0:
        return IntegerResult(slot, span.FirstColumn + 1, stack);
    case 1:
        return IntegerResult(slot, span.FirstLine + 1, stack);
    case 2:
        return IntegerResult(slot, span.LastColumn + 1, stack);
    case 3:
        return IntegerResult(slot, span.LastLine + 1, stack);
    default:
        return FailHandler(context, MessageId::IncorrectArgumentValue);
    }
}
