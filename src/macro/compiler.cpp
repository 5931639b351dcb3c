#include "macro/compiler.h"

#include "macro/command_pool.h"
#include "macro/evaluator.h"
#include "macro/function_table.h"
#include "macro/regrow_block.h"
#include "macro/user_functions.h"
#include "macro/variables.h"
#include "platform/exec/memory.h"
#include "platform/exec/stack_space.h"
#include "platform/utility/strings.h"
#include "text/record/char_class.h"
#include "text/record/text_record.h"

#include <algorithm>
#include <cstring>

namespace {

// Appends a token, growing the array. False with 218 or 210 set.
bool EmitToken(MacroContext* context, int16_t op, int32_t a, int32_t b);

// Compiles operands and operators from Position up to the end of the text,
// a comment, or a `)` or `,` that closes this level. 0 on error; the
// closing character when `)` or `,` ended it (Position behind it); 1 at
// the end of the text or a comment (Position on it).
int CompileOperands(const char* text, MacroContext* context);

// The parser recurses once per parenthesis; it stops with "Stack overflow"
// while this much stack is still free for what runs after it.
constexpr size_t CompileStackReserve = 64 * 1024;

// Pending operators on one parenthesis level, the sentinel included.
constexpr int PendingLimit = 10;

bool Fail(MacroContext* context, MessageId id)
{
    SetMacroError(context, id);
    return false;
}

// The result of CompileOperands that stops the compile.
int Stop(MacroContext* context, MessageId id)
{
    SetMacroError(context, id);
    return 0;
}

unsigned char At(const char* text, int32_t position)
{
    return static_cast<unsigned char>(text[position]);
}

bool HasClass(unsigned char c, uint8_t bits)
{
    return (CharClass[c] & bits) != 0;
}

void SkipBlanks(const char* text, MacroContext* context)
{
    while (HasClass(At(text, context->Position), CharSpace))
        ++context->Position;
}

int Priority(int16_t op)
{
    switch (op) {
    case OpPower:
        return 10;
    case OpMultiply:
    case OpDivide:
    case OpRemainder:
        return 9;
    case OpAdd:
    case OpSubtract:
        return 8;
    case OpShiftLeft:
    case OpShiftRight:
        return 7;
    case OpAnd:
        return 6;
    case OpXor:
        return 5;
    case OpOr:
        return 4;
    case OpAssign:
        return 2;
    case OpSequence:
        return 1;
    case OpEnd:
        return 0;
    default:
        return 3; // the comparisons
    }
}

// The binary operator at Position, moving past it, or 0 when there is none.
int16_t ReadOperator(const char* text, MacroContext* context)
{
    const char c = text[context->Position];
    const char next = c ? text[context->Position + 1] : '\0';
    int16_t op = 0;
    int length = 1;
    switch (c) {
    case '+':
        op = OpAdd;
        break;
    case '-':
        op = OpSubtract;
        break;
    case '*':
        op = OpMultiply;
        break;
    case '/':
        op = OpDivide;
        break;
    case '^':
        op = OpPower;
        break;
    case '&':
        op = OpAnd;
        break;
    case '|':
        op = OpOr;
        break;
    case '?':
        op = OpXor;
        break;
    case '%':
        op = OpRemainder;
        break;
    case ':':
        op = OpSequence;
        break;
    case '=':
        op = next == '=' ? OpEqual : OpAssign;
        break;
    case '<':
        op = next == '=' ? OpLessEqual : next == '<' ? OpShiftLeft
            : next == '>'                            ? OpNotEqual
                                                     : OpLess;
        break;
    case '>':
        op = next == '=' ? OpGreaterEqual : next == '>' ? OpShiftRight
                                                        : OpGreater;
        break;
    default:
        return 0;
    }
    if (op == OpEqual || op == OpLessEqual || op == OpShiftLeft || op == OpNotEqual || op == OpGreaterEqual || op == OpShiftRight)
        length = 2;
    context->Position += length;
    return op;
}

bool CompileString(const char* text, MacroContext* context)
{
    int32_t end = context->Position + 1;
    size_t length = 0;
    for (;; ++end, ++length) {
        if (text[end] == '\0')
            return Fail(context, MessageId::IncorrectString);
        if (text[end] == '"') {
            if (text[end + 1] != '"')
                break;
            ++end;
        }
    }
    char* copy = PoolAllocate(context->Pool, length + 1);
    if (!copy)
        return Fail(context, MessageId::NotEnoughMemory);
    copy[length] = '\0';
    size_t out = 0;
    for (int32_t in = context->Position + 1; in < end; ++in) {
        copy[out++] = text[in];
        if (text[in] == '"')
            ++in;
    }
    context->Position = end + 1;
    if (!EmitToken(context, OpString, 0, 0))
        return false;
    context->Tokens[context->Count - 1].Text = copy;
    return true;
}

// A call: its token, then one segment per argument.
bool CompileCall(const char* text, MacroContext* context, int16_t op, int32_t row)
{
    const int32_t callToken = context->Count;
    if (!EmitToken(context, op, context->Position, 0))
        return false;
    if (row > 0 && (MacroFunctionRow(row).CallFlags & CallNoParentheses)) {
        if (text[context->Position] == '(') {
            RecordFunctionName(context->Text, op);
            return Fail(context, MessageId::SyntaxError);
        }
        context->Tokens[callToken].B = 1;
        return EmitToken(context, OpInteger, 0, 0) && EmitToken(context, OpEnd, 0, 0);
    }
    const int16_t depth = context->Depth++;
    int32_t arguments = 0;
    for (;;) {
        const int closer = CompileOperands(text, context);
        if (closer == 0)
            return false;
        SkipBlanks(text, context);
        if (closer != ')' && closer != ',')
            return Fail(context, MessageId::SyntaxError);
        if (!EmitToken(context, OpEnd, 0, 0))
            return false;
        ++arguments;
        if (closer == ')')
            break;
    }
    if (context->Depth != depth)
        return Fail(context, MessageId::IncorrectArgument);
    context->Tokens[callToken].B = arguments;
    return true;
}

bool CompilePrimary(const char* text, MacroContext* context)
{
    const unsigned char c = At(text, context->Position);
    if (c == '(') {
        ++context->Depth;
        ++context->Position;
        return CompileOperands(text, context) != 0;
    }
    if (c == '"')
        return CompileString(text, context);
    if (const int32_t found = FindFunction(text, context)) {
        if (found > 0)
            return CompileCall(text, context, static_cast<int16_t>(OpFirstBuiltin + found - 1), found);
        return CompileCall(text, context, static_cast<int16_t>(OpFirstUser + ~found), 0);
    }
    if (HasClass(c, CharUpper | CharLower) || c == '_')
        return ParseVariable(text, context) == 0;
    int32_t value = 0;
    return ParseNumber(text, context, &value) == 0 && EmitToken(context, OpInteger, value, 0);
}

int DigitValue(unsigned char c)
{
    if (c >= '0' && c <= '9')
        return c - '0';
    if (c >= 'A' && c <= 'Z')
        return c - 'A' + 10;
    return 99;
}

bool EmitToken(MacroContext* context, int16_t op, int32_t a, int32_t b)
{
    if (context->Count == context->Capacity) {
        if (context->Capacity >= MaxTokens)
            return Fail(context, MessageId::ExpressionTooComplex);
        if (!RegrowArray(&context->Tokens, &context->Capacity, context->Count, context->Capacity + TokenGrowth, MEMF_ANY))
            return Fail(context, MessageId::NotEnoughMemory);
    }
    MacroToken& token = context->Tokens[context->Count++];
    token.Op = op;
    token.Text = nullptr;
    token.A = a;
    token.B = b;
    return true;
}

} // namespace

int ParseNumber(const char* text, MacroContext* context, int32_t* value)
{
    int32_t position = context->Position;
    bool negative = false;
    if (text[position] == '+' || text[position] == '-')
        negative = text[position++] == '-';
    int radix = 10;
    bool prefixed = true;
    const char c = text[position];
    const char next = c ? text[position + 1] : '\0';
    if (c == '$') {
        radix = 16;
        position += 1;
    } else if (c == '0' && next == 'X') {
        radix = 16;
        position += 2;
    } else if (c == '&') {
        const char* radixes = "H\x10"
                              "D\x0A"
                              "O\x08"
                              "B\x02";
        const char* found = next ? std::strchr(radixes, next) : nullptr;
        if (!found || (found - radixes) % 2 != 0) {
            SetMacroError(context, MessageId::IncorrectOperand);
            return context->Error;
        }
        radix = found[1];
        position += 2;
    } else {
        prefixed = false;
        if (c < '0' || c > '9') {
            SetMacroError(context, MessageId::IncorrectOperand);
            return context->Error;
        }
    }
    uint32_t accumulated = 0;
    const int32_t firstDigit = position;
    for (int digit; (digit = DigitValue(At(text, position))) < radix; ++position)
        accumulated = accumulated * uint32_t(radix) + uint32_t(digit);
    if (prefixed && position == firstDigit) {
        SetMacroError(context, MessageId::IncorrectNumber);
        return context->Error;
    }
    *value = static_cast<int32_t>(negative ? 0u - accumulated : accumulated);
    context->Position = position;
    return 0;
}

int ParseVariable(const char* text, MacroContext* context)
{
    const int32_t start = context->Position;
    int32_t end = start + 1;
    while (HasClass(At(text, end), CharName))
        ++end;
    const int32_t length = end - start;
    context->Position = end;
    SkipBlanks(text, context);
    if (text[context->Position] == '(') {
        if (context->Text) {
            const size_t kept = std::min<size_t>(size_t(length), sizeof context->Text->MacroScratch - 1);
            std::memcpy(context->Text->MacroScratch, text + start, kept);
            context->Text->MacroScratch[kept] = '\0';
        }
        SetMacroError(context, MessageId::UnknownFunction);
        return context->Error;
    }
    if (length > MaxVariableName) {
        SetMacroError(context, MessageId::VariableNameTooLong);
        return context->Error;
    }
    char name[MaxVariableName + 1];
    std::memcpy(name, text + start, size_t(length));
    name[length] = '\0';
    const int32_t index = FindVariable(context->Text, name);
    if (index < 0) {
        SetMacroError(context, MessageId::VariableCreationImpossible);
        return context->Error;
    }
    EmitToken(context, OpVariable, index, 0);
    return context->Error;
}

int32_t FindFunction(const char* text, MacroContext* context)
{
    const char* here = text + context->Position;
    const auto first = static_cast<unsigned char>(*here);
    for (int32_t row = FirstFunctionRow(first); row < MacroFunctionCount(); ++row) {
        const MacroFunction& function = MacroFunctionRow(row);
        if (first < static_cast<unsigned char>(function.Name[0]))
            break;
        const size_t length = std::strlen(function.Name);
        if (std::strncmp(function.Name, here, length) != 0)
            continue;
        int32_t behind = context->Position + int32_t(length);
        if (function.CallFlags & CallNoParentheses) {
            if (HasClass(At(text, behind), CharName))
                continue;
            context->Position = behind;
            return row;
        }
        while (HasClass(At(text, behind), CharSpace))
            ++behind;
        if (text[behind] == '(') {
            context->Position = behind + 1;
            return row;
        }
    }
    const int32_t index = FindUserFunction(text, &context->Position);
    return index < 0 ? 0 : ~index;
}

namespace {

int CompileOperands(const char* text, MacroContext* context)
{
    if (StackSpaceLeft() < CompileStackReserve)
        return Stop(context, MessageId::StackOverflow);
    int16_t pending[PendingLimit];
    int32_t offsets[PendingLimit];
    int count = 0;
    int16_t op = OpEnd;
    int32_t opOffset = 0;
    for (;;) {
        if (count == PendingLimit)
            return Stop(context, MessageId::ExpressionTooComplex);
        pending[count] = op;
        offsets[count++] = opOffset;

        SkipBlanks(text, context);
        if (text[context->Position] == '\0')
            return Stop(context, MessageId::UncompleteExpression);
        const char sign = text[context->Position];
        const bool hasSign = sign == '+' || sign == '-';
        if (hasSign) {
            if (!EmitToken(context, sign == '+' ? OpPlus : OpMinus, context->Position, 1))
                return 0;
            ++context->Position;
            SkipBlanks(text, context);
            const char after = text[context->Position];
            if (after == '\0')
                return Stop(context, MessageId::UncompleteExpression);
            if (after == '+' || after == '-')
                return Stop(context, MessageId::IncorrectOperator);
        }
        if (!CompilePrimary(text, context))
            return 0;
        if (hasSign && !EmitToken(context, OpEnd, 0, 0))
            return 0;

        SkipBlanks(text, context);
        opOffset = context->Position;
        op = ReadOperator(text, context);
        if (op != 0) {
            while (Priority(op) <= Priority(pending[count - 1])) {
                --count;
                if (!EmitToken(context, pending[count], offsets[count], 0))
                    return 0;
            }
            continue;
        }
        const char closer = text[context->Position];
        if (closer != ')' && closer != ',' && closer != '\'' && closer != '\0')
            return Stop(context, MessageId::MissingOperator);
        if (closer == ')')
            --context->Depth;
        while (count > 1) {
            --count;
            if (!EmitToken(context, pending[count], offsets[count], 0))
                return 0;
        }
        if (closer == '\0' || closer == '\'')
            return 1;
        ++context->Position;
        return closer;
    }
}

} // namespace

int CompileExpression(const char* text, MacroContext* context)
{
    context->Position = 0;
    context->Error = 0;
    context->Depth = 0;
    context->Count = 0;
    if (std::strlen(text) > size_t(MaxCommandLength)) {
        SetMacroError(context, MessageId::ExpressionTooComplex);
        return context->Error;
    }
    const int closer = CompileOperands(text, context);
    if (closer == 1)
        EmitToken(context, OpEnd, 0, 0);
    else if (closer != 0)
        SetMacroError(context, context->Depth != 0 ? MessageId::BadParenthesis : MessageId::SyntaxError);
    if (context->Error == 0 && context->Depth != 0)
        SetMacroError(context, MessageId::BadParenthesis);
    if (context->Error == int(MessageId::SyntaxError) || context->Error == int(MessageId::BadParenthesis)) {
        int balance = 0;
        for (const char* c = text; *c; ++c)
            balance += *c == '(' ? 1 : *c == ')' ? -1
                                                 : 0;
        if (balance != 0)
            context->Error = static_cast<int16_t>(MessageId::BadParenthesis);
    }
    return context->Error;
}

void UpperCaseCommand(char* text)
{
    for (char* c = text; *c && *c != '\''; ++c) {
        if (*c == '"') {
            c = std::strchr(c + 1, '"');
            if (!c)
                return;
            continue;
        }
        *c = static_cast<char>(ToUpper(static_cast<unsigned char>(*c)));
    }
}
