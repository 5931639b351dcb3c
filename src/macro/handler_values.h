#pragma once
// The values and failures of the handlers of built-in functions, as the
// slot convention of function_table.h wants them.
#include "macro/command_pool.h"
#include "macro/macro_types.h"

#include <cstddef>
#include <cstdint>
#include <cstring>

// Sets `id` (unless an error is there already) and gives -1.
inline int32_t FailHandler(MacroContext* context, MessageId id)
{
    SetMacroError(context, id);
    return -1;
}

// An integer at `slot`.
inline int32_t IntegerResult(int32_t slot, int32_t value, MacroStack* stack)
{
    stack->Values[slot].Kind = KindInteger;
    stack->Values[slot].Integer = value;
    return slot;
}

// A copy of `length` bytes of `text` in the command's pool at `slot`; -1
// with 218 set when memory is short.
inline int32_t StringResult(int32_t slot, const char* text, size_t length, MacroStack* stack,
                            MacroContext* context)
{
    char* copy = PoolString(context->Pool, text, length);
    if (!copy)
        return FailHandler(context, MessageId::NotEnoughMemory);
    stack->Values[slot].Kind = KindString;
    stack->Values[slot].String = copy;
    return slot;
}

// StringResult of the whole of the string `text`.
inline int32_t StringResult(int32_t slot, const char* text, MacroStack* stack, MacroContext* context)
{
    return StringResult(slot, text, std::strlen(text), stack, context);
}
