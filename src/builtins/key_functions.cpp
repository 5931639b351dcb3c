#include "builtins/key_functions.h"

#include "config/key_names.h"
#include "config/key_requests.h"
#include "macro/evaluator.h"
#include "macro/handler_values.h"
#include "platform/exec/memory.h"

namespace {

bool ParseArgument(int32_t slot, MacroStack* stack, MacroContext* context, ParsedKey* key)
{
    if (ParseKeyName(stack->Values[slot].String, key) >= 0)
        return true;
    SetMacroError(context, MessageId::IncorrectArgumentValue);
    return false;
}

} // namespace

int32_t MapFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    ParsedKey key;
    if (!ParseArgument(slot, stack, context, &key))
        return -1;
    const char* command = NextStringArgument(&slot, stack, context);
    if (!command)
        return -1;
    return IntegerResult(slot, SetKey(context->Text, key.Key, key.Qualifier, command), stack);
}

int32_t UnmapFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    ParsedKey key;
    if (!ParseArgument(slot, stack, context, &key))
        return -1;
    ClearKey(context->Text, key.Key, key.Qualifier);
    return slot;
}

int32_t ReadMapFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    ParsedKey key;
    if (!ParseArgument(slot, stack, context, &key))
        return -1;
    char* text = GetKeyMacro(context->Text, key.Key, key.Qualifier, false);
    const int32_t result = StringResult(slot, text ? text : "", stack, context);
    FreeVec(text);
    return result;
}
