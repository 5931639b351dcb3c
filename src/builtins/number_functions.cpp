#include "builtins/number_functions.h"

#include "macro/handler_values.h"
#include "macro/compiler.h"
#include "text/record/char_class.h"

#include <cinttypes>
#include <cstdio>

namespace {

// The bits of TYPE's value.
constexpr int32_t TypeVowel = 0x001;
constexpr int32_t TypeLetter = 0x002;
constexpr int32_t TypeUpper = 0x004;
constexpr int32_t TypeLower = 0x008;
constexpr int32_t TypeDigit = 0x010;
constexpr int32_t TypeBlank = 0x020;
constexpr int32_t TypePunctuation = 0x040;
constexpr int32_t TypeAscii = 0x080;
constexpr int32_t TypeWord = 0x100;

} // namespace

int32_t AbsFunction(int32_t slot, MacroStack* stack, MacroContext*)
{
    // Negating in unsigned arithmetic wraps the smallest integer onto
    // itself instead of overflowing.
    const int32_t value = stack->Values[slot].Integer;
    const uint32_t magnitude = value < 0 ? 0u - uint32_t(value) : uint32_t(value);
    return IntegerResult(slot, static_cast<int32_t>(magnitude), stack);
}

int32_t SgnFunction(int32_t slot, MacroStack* stack, MacroContext*)
{
    const int32_t value = stack->Values[slot].Integer;
    return IntegerResult(slot, (value > 0) - (value < 0), stack);
}

int32_t StrFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    char text[16];
    const int length = std::snprintf(text, sizeof text, "%" PRId32, stack->Values[slot].Integer);
    return StringResult(slot, text, size_t(length), stack, context);
}

int32_t StrBinFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const uint32_t value = uint32_t(stack->Values[slot].Integer);
    char text[32];
    for (int bit = 0; bit < 32; ++bit)
        text[bit] = (value >> (31 - bit)) & 1u ? '1' : '0';
    return StringResult(slot, text, sizeof text, stack, context);
}

int32_t StrHexFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    char text[16];
    const int length = std::snprintf(text, sizeof text, "%" PRIx32, uint32_t(stack->Values[slot].Integer));
    return StringResult(slot, text, size_t(length), stack, context);
}

int32_t ValFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const char* text = stack->Values[slot].String;
    while (CharClass[static_cast<unsigned char>(*text)] & CharSpace)
        ++text;
    // The compiler's number reader, on a context of its own so that its
    // position starts at the number.
    MacroContext reader{};
    int32_t value = 0;
    if (ParseNumber(text, &reader, &value) != 0)
        return FailHandler(context, MessageId{reader.Error});
    return IntegerResult(slot, value, stack);
}

int32_t TypeFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const int32_t code = stack->Values[slot].Integer;
    if (code < 0 || code > 255)
        return FailHandler(context, MessageId::IncorrectArgumentValue);
    const uint8_t bits = CharClass[size_t(code)];
    int32_t type = 0;
    if (bits & CharVowel)
        type |= TypeVowel;
    if (bits & (CharUpper | CharLower))
        type |= TypeLetter;
    if (bits & CharUpper)
        type |= TypeUpper;
    if (bits & CharLower)
        type |= TypeLower;
    if (bits & CharDigit)
        type |= TypeDigit;
    if (bits & CharSpace)
        type |= TypeBlank;
    if (bits & CharPunctuation)
        type |= TypePunctuation;
    if (code <= 0x7F)
        type |= TypeAscii;
    if (bits & CharWordLetter)
        type |= TypeWord;
    return IntegerResult(slot, type, stack);
}
