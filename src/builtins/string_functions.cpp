#include "builtins/string_functions.h"

#include "macro/handler_values.h"
#include "macro/evaluator.h"
#include "platform/utility/strings.h"
#include "text/record/text_record.h"

#include <algorithm>
#include <cstring>

namespace {

using CaseMapping = unsigned char (*)(unsigned char);

int32_t MappedCopy(int32_t slot, MacroStack* stack, MacroContext* context, CaseMapping mapping)
{
    const char* text = stack->Values[slot].String;
    const size_t length = std::strlen(text);
    if (StringResult(slot, text, length, stack, context) < 0)
        return -1;
    char* copy = stack->Values[slot].String;
    for (size_t at = 0; at < length; ++at)
        copy[at] = static_cast<char>(mapping(static_cast<unsigned char>(copy[at])));
    return slot;
}

// The first candidate at or after `from` whose first character is `first`:
// the terminator counts when case counts, so an empty `sub` is found at
// the end; without case only characters of the text are visited.
const char* NextCandidate(const char* from, char first, bool ignoreCase)
{
    if (!ignoreCase)
        return std::strchr(from, first);
    const unsigned char wanted = ToUpper(static_cast<unsigned char>(first));
    for (; *from; ++from) {
        if (ToUpper(static_cast<unsigned char>(*from)) == wanted)
            return from;
    }
    return nullptr;
}

} // namespace

int32_t AscFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const char* text = stack->Values[slot].String;
    const int32_t position = NextIntegerArgument(&slot, stack, context);
    if (context->Error)
        return -1;
    if (position < 1 || size_t(position) > std::strlen(text))
        return FailHandler(context, MessageId::IncorrectArgumentValue);
    return IntegerResult(slot, static_cast<unsigned char>(text[position - 1]), stack);
}

int32_t ChrFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const int32_t code = stack->Values[slot].Integer;
    if (code < 1 || code > 255)
        return FailHandler(context, MessageId::IncorrectArgumentValue);
    const char character = static_cast<char>(code);
    return StringResult(slot, &character, 1, stack, context);
}

int32_t LenFunction(int32_t slot, MacroStack* stack, MacroContext*)
{
    return IntegerResult(slot, static_cast<int32_t>(std::strlen(stack->Values[slot].String)), stack);
}

int32_t LowerFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return MappedCopy(slot, stack, context, ToLower);
}

int32_t UpperFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return MappedCopy(slot, stack, context, ToUpper);
}

int32_t PosFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const char* sub = stack->Values[slot].String;
    const char* text = NextStringArgument(&slot, stack, context);
    if (!text)
        return -1;
    const bool ignoreCase = context->Text && (context->Text->Options & IgnoreCase);
    const size_t length = std::strlen(sub);
    for (const char* at = text; (at = NextCandidate(at, sub[0], ignoreCase)) != nullptr; ++at) {
        if (std::strncmp(at, sub, length) == 0)
            return IntegerResult(slot, static_cast<int32_t>(at - text + 1), stack);
    }
    return IntegerResult(slot, 0, stack);
}

int32_t SubsFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const char* text = stack->Values[slot].String;
    const int32_t position = NextIntegerArgument(&slot, stack, context);
    if (context->Error)
        return -1;
    const int32_t count = NextIntegerArgument(&slot, stack, context);
    if (context->Error)
        return -1;
    const size_t length = std::strlen(text);
    if (position < 1 || size_t(position) > length || count < 1)
        return FailHandler(context, MessageId::IncorrectArgumentValue);
    const size_t from = size_t(position) - 1;
    const size_t taken = std::min(size_t(count), length - from);
    return StringResult(slot, text + from, taken, stack, context);
}
