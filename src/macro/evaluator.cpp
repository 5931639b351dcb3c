#include "macro/evaluator.h"

#include "frame/window/text_window.h"
#include "macro/compiler.h"
#include "macro/function_table.h"
#include "macro/fuse_tokens.h"
#include "macro/integer_operators.h"
#include "macro/regrow_block.h"
#include "macro/string_operators.h"
#include "macro/user_functions.h"
#include "macro/variables.h"
#include "platform/exec/memory.h"
#include "platform/exec/stack_space.h"
#include "services/messages.h"
#include "text/record/text_record.h"

#include <algorithm>
#include <cstdio>
#include <cstring>
#include <iterator>

namespace {

// RunTokens recurses once per segment and per user function call; it stops
// with "Stack overflow" while this much of the thread's stack is still free
// for the handlers and what they call.
constexpr size_t RunStackReserve = 64 * 1024;

bool Fail(MacroContext* context, MessageId id)
{
    SetMacroError(context, id);
    return false;
}

// Sets the error and gives what the caller returns on failure.
template <typename T>
T Stop(MacroContext* context, MessageId id, T failure)
{
    SetMacroError(context, id);
    return failure;
}

// Makes room for a push at `index`, which is beyond the capacity.
bool ReserveSlot(MacroStack* stack, int32_t index, MacroContext* context)
{
    // Doubling keeps deep recursion linear; small stacks grow by 10.
    const int32_t capacity = std::max(index + 10, stack->Capacity * 2);
    return RegrowArray(&stack->Values, &stack->Capacity, stack->Capacity, capacity, MEMF_CLEAR)
        || Fail(context, MessageId::NotEnoughMemory);
}

// Makes room for one more value above `*slot` and moves up to it; false
// with 218 set and the token index given back.
inline bool PushValue(MacroStack* stack, int32_t* slot, MacroContext* context, int32_t index)
{
    if (*slot + 1 >= stack->Capacity && !ReserveSlot(stack, *slot + 1, context)) {
        context->Count = index;
        return false;
    }
    ++*slot;
    return true;
}

void SkipSegment(MacroContext* context)
{
    for (;;) {
        const MacroToken& token = context->Tokens[++context->Count];
        if (token.Op == OpEnd)
            return;
        if (token.Op == OpPlus || token.Op == OpMinus) {
            SkipSegment(context);
        } else if (token.Op >= OpFirstBuiltin) {
            for (int32_t argument = 0; argument < token.B; ++argument)
                SkipSegment(context);
        }
    }
}

int RunAssignment(MacroContext* context, MacroValue* left, MacroValue* right)
{
    if (left->Kind == KindString) {
        if (const int error = ResolveValue(context->Text, right))
            return error;
        return int(right->Kind == KindString ? MessageId::StringProcessingImpossible
                                             : MessageId::IncorrectOperandType);
    }
    if (const int error = ResolveValue(context->Text, right))
        return error;
    return AssignVariable(context, left, right);
}

int RunOperator(MacroContext* context, int16_t op, MacroValue* left, MacroValue* right)
{
    const TextRecord* record = context->Text;
    if (const int error = ResolveValue(record, left))
        return error;
    if (op == OpSequence) {
        const int error = ResolveValue(record, right);
        if (error == 0)
            *left = *right;
        return error;
    }
    if (left->Kind == KindString) {
        if (op == OpShiftLeft || op == OpShiftRight) {
            if (ResolveToInteger(record, right) != 0)
                return int(MessageId::VariableTypeMismatch);
        } else {
            if (const int error = ResolveValue(record, right))
                return error;
            if (right->Kind != KindString)
                return int(MessageId::IncorrectOperandType);
        }
        return ApplyStringOperator(context, op, left, right);
    }
    if (const int error = ResolveValue(record, right))
        return error;
    if (right->Kind != KindInteger)
        return int(MessageId::IncorrectOperandType);
    return ApplyIntegerOperator(op, left->Integer, right->Integer, &left->Integer);
}

// A binary operator on the two top elements; the value replaces the left.
// Two integers take the short way here; everything else follows the full
// rules. An integer assigned to a variable that isn't a string never gets
// here: RunSegments takes it.
inline bool RunBinary(int16_t op, int32_t left, MacroStack* stack, MacroContext* context)
{
    MacroValue* values = stack->Values;
    const TextRecord* record = context->Text;
    int32_t a, b;
    int error;
    if (op == OpAssign) {
        error = RunAssignment(context, &values[left], &values[left + 1]);
    } else if (op != OpSequence && ReadInteger(record->MacroVariables, values[left], &a) && ReadInteger(record->MacroVariables, values[left + 1], &b)) {
        values[left].Kind = KindInteger;
        error = ApplyIntegerOperator(op, a, b, &values[left].Integer);
    } else {
        error = RunOperator(context, op, &values[left], &values[left + 1]);
    }
    if (error == 0)
        return true;
    return Fail(context, MessageId{error});
}

// A built-in's call, its token at Count. The new top, or -1.
int32_t CallBuiltin(const MacroToken& token, int32_t slot, MacroStack* stack, MacroContext* context)
{
    const MacroFunction& function = MacroFunctionRow(token.Op - OpFirstBuiltin + 1);
    const int count = function.CallFlags & CallCountMask;
    if (count != 0 && count != token.B) {
        SetMacroError(context, MessageId::BadArgumentNumber);
        RecordFunctionName(context->Text, token.Op);
        return -1;
    }
    int32_t at = slot;
    if (!(function.CallFlags & CallLazy)) {
        at = RunTokens(slot, stack, context);
        if (context->Error)
            return -1;
        MacroValue& first = stack->Values[at];
        if ((function.FirstArgument & ArgResolve) && ResolveValue(context->Text, &first) != 0)
            SetMacroError(context, MessageId::VariableTypeMismatch);
        const uint16_t allowed = first.Kind == KindInteger ? ArgInteger
            : first.Kind == KindString                     ? ArgString
            : first.Kind == KindVariable                   ? ArgVariable
                                                           : 0;
        if (function.FirstArgument != 0 && !(function.FirstArgument & allowed))
            SetMacroError(context, MessageId::ArgumentTypeMismatch);
        if (context->Error) {
            RecordFunctionName(context->Text, token.Op);
            return -1;
        }
    }
    if ((function.FirstArgument & ArgWindow) && !EnsureWindow(context->Text)) {
        SetMacroError(context, MessageId{240});
        RecordFunctionName(context->Text, token.Op);
        return -1;
    }
    const int32_t top = function.Handler(at, stack, context);
    if (top < 0) {
        SetMacroError(context, MessageId::ErrorAnalysis);
        RecordFunctionName(context->Text, token.Op);
        return -1;
    }
    return top;
}

// RunSegments, and when `resume` isn't -1 one more segment behind token
// `resume`, pushing above `resumeSlot`.
int32_t RunProgram(int32_t slot, MacroStack* stack, MacroContext* context, int32_t segments, int32_t resume,
    int32_t resumeSlot)
{
    int32_t base = slot;
    if (StackSpaceLeft() < RunStackReserve)
        SetMacroError(context, MessageId::StackOverflow);
    if (context->Error)
        return 0;
    // The token index lives in a register and goes back to the context
    // before anything that reads it: a nested run, a call, the return.
    // Only those and the operators can set the error, so it is tested
    // after them.
    // Each kind of token jumps straight to the next one's code (GCC's
    // labels as values): one indirect jump per token, predicted per kind,
    // where a switch shares a single jump that the processor mispredicts.
    // The usual operators on two integers have short ways of their own,
    // and the fused forms run a whole shape of tokens at once.
    static const void* const Codes[] = {
        &&argumentOpInteger,
        &&argumentOpArgument,
        &&variableOpInteger,
        &&variableOpVariable,
        &&setVariableOpInteger,
        &&setVariableOpVariable,
        &&end,
        &&add,
        &&subtract,
        &&multiply,
        &&binary,
        &&binary,
        &&bitAnd,
        &&bitOr,
        &&bitXor,
        &&binary,
        &&binary,
        &&assign,
        &&less,
        &&greater,
        &&binary,
        &&binary,
        &&lessEqual,
        &&greaterEqual,
        &&equal,
        &&notEqual,
        &&integer,
        &&variable,
        &&string,
        &&argument,
        &&sign,
        &&sign,
        &&define,
    };
    static_assert(std::size(Codes) == OpFirstBuiltin - OpFirstFused);
    const MacroToken* tokens = context->Tokens;
    const int32_t* const variableMap = context->VariableMap;
    const TextRecord* const record = context->Text;
    int32_t index = context->Count;
    const MacroToken* token;
    int32_t a, b;

#define NEXT_TOKEN()                           \
    do {                                       \
        token = &tokens[++index];              \
        if (token->Op >= OpFirstBuiltin)       \
            goto call;                         \
        goto* Codes[token->Op - OpFirstFused]; \
    } while (0)

// A variable token's row in the text's table.
#define ROW(variableToken) (variableMap ? variableMap[(variableToken).A] : (variableToken).A)
// Pushes a fused form's value. The push comes before the form changes a
// variable: when it fails, nothing has changed.
#define PUSH_INTEGER(value)                           \
    do {                                              \
        if (!PushValue(stack, &slot, context, index)) \
            return 0;                                 \
        stack->Values[slot].Kind = KindInteger;       \
        stack->Values[slot].Integer = (value);        \
    } while (0)

    NEXT_TOKEN();
end:
    if (--segments > 0) {
        slot = base;
        NEXT_TOKEN();
    }
    if (resume >= 0) {
        index = resume;
        resume = -1;
        slot = base = resumeSlot;
        segments = 1;
        NEXT_TOKEN();
    }
    context->Count = index;
    return slot;
integer:
    if (!PushValue(stack, &slot, context, index))
        return 0;
    stack->Values[slot].Kind = KindInteger;
    stack->Values[slot].Integer = token->A;
    NEXT_TOKEN();
variable:
    if (!PushValue(stack, &slot, context, index))
        return 0;
    stack->Values[slot].Kind = KindVariable;
    stack->Values[slot].Index = ROW(*token);
    NEXT_TOKEN();

    // The fused forms: the shape's value in one step, or the variable token
    // they stand on when the short way doesn't hold.
variableOpInteger:
    if (VariableInteger(record->MacroVariables[ROW(*token)], &a)
        && ApplyIntegerOperator(token[2].Op, a, token[1].A, &b) == 0) {
        PUSH_INTEGER(b);
        index += 2;
        NEXT_TOKEN();
    }
    goto variable;
variableOpVariable:
    if (VariableInteger(record->MacroVariables[ROW(*token)], &a)
        && VariableInteger(record->MacroVariables[ROW(token[1])], &b)
        && ApplyIntegerOperator(token[2].Op, a, b, &b) == 0) {
        PUSH_INTEGER(b);
        index += 2;
        NEXT_TOKEN();
    }
    goto variable;
setVariableOpInteger : {
    MacroVariable& target = record->MacroVariables[ROW(*token)];
    if (target.Kind != KindString && VariableInteger(record->MacroVariables[ROW(token[1])], &a)
        && ApplyIntegerOperator(token[3].Op, a, token[2].A, &b) == 0) {
        PUSH_INTEGER(b);
        target.Kind = KindInteger;
        target.Integer = b;
        index += 4;
        NEXT_TOKEN();
    }
    goto variable;
}
setVariableOpVariable : {
    MacroVariable& target = record->MacroVariables[ROW(*token)];
    if (target.Kind != KindString && VariableInteger(record->MacroVariables[ROW(token[1])], &a)
        && VariableInteger(record->MacroVariables[ROW(token[2])], &b)
        && ApplyIntegerOperator(token[3].Op, a, b, &b) == 0) {
        PUSH_INTEGER(b);
        target.Kind = KindInteger;
        target.Integer = b;
        index += 4;
        NEXT_TOKEN();
    }
    goto variable;
}
argumentOpInteger:
    if (ReadInteger(record->MacroVariables, stack->Values[context->ArgumentBase + token->A], &a)
        && ApplyIntegerOperator(token[2].Op, a, token[1].A, &b) == 0) {
        PUSH_INTEGER(b);
        index += 2;
        NEXT_TOKEN();
    }
    goto argument;
argumentOpArgument:
    if (ReadInteger(record->MacroVariables, stack->Values[context->ArgumentBase + token->A], &a)
        && ReadInteger(record->MacroVariables, stack->Values[context->ArgumentBase + token[1].A], &b)
        && ApplyIntegerOperator(token[2].Op, a, b, &b) == 0) {
        PUSH_INTEGER(b);
        index += 2;
        NEXT_TOKEN();
    }
    goto argument;
#undef ROW
#undef PUSH_INTEGER
string:
    if (!PushValue(stack, &slot, context, index))
        return 0;
    stack->Values[slot].Kind = KindString;
    stack->Values[slot].String = token->Text;
    NEXT_TOKEN();
argument:
    if (!PushValue(stack, &slot, context, index))
        return 0;
    stack->Values[slot] = stack->Values[context->ArgumentBase + token->A];
    NEXT_TOKEN();

#define INTEGER_OPERATOR(label, result)                                                                                                     \
    label:                                                                                                                                  \
    if (ReadInteger(record->MacroVariables, stack->Values[slot - 1], &a) && ReadInteger(record->MacroVariables, stack->Values[slot], &b)) { \
        --slot;                                                                                                                             \
        stack->Values[slot].Kind = KindInteger;                                                                                             \
        stack->Values[slot].Integer = (result);                                                                                             \
        NEXT_TOKEN();                                                                                                                       \
    }                                                                                                                                       \
    goto binary;

    INTEGER_OPERATOR(add, static_cast<int32_t>(static_cast<uint32_t>(a) + static_cast<uint32_t>(b)))
    INTEGER_OPERATOR(subtract, static_cast<int32_t>(static_cast<uint32_t>(a) - static_cast<uint32_t>(b)))
    INTEGER_OPERATOR(multiply, static_cast<int32_t>(static_cast<uint32_t>(a) * static_cast<uint32_t>(b)))
    INTEGER_OPERATOR(bitAnd, a & b)
    INTEGER_OPERATOR(bitOr, a | b)
    INTEGER_OPERATOR(bitXor, a ^ b)
    INTEGER_OPERATOR(less, a < b)
    INTEGER_OPERATOR(greater, a > b)
    INTEGER_OPERATOR(lessEqual, a <= b)
    INTEGER_OPERATOR(greaterEqual, a >= b)
    INTEGER_OPERATOR(equal, a == b)
    INTEGER_OPERATOR(notEqual, a != b)
#undef INTEGER_OPERATOR

assign:
    if (stack->Values[slot - 1].Kind == KindVariable && ReadInteger(record->MacroVariables, stack->Values[slot], &b)) {
        MacroVariable& row = context->Text->MacroVariables[stack->Values[slot - 1].Index];
        if (row.Kind != KindString) {
            row.Kind = KindInteger;
            row.Integer = b;
            --slot;
            stack->Values[slot].Kind = KindInteger;
            stack->Values[slot].Integer = b;
            NEXT_TOKEN();
        }
    }
binary:
    context->Position = token->A;
    --slot;
    if (!RunBinary(token->Op, slot, stack, context)) {
        context->Count = index;
        return 0;
    }
    NEXT_TOKEN();
sign : {
    context->Position = token->A;
    context->Count = index;
    const bool minus = token->Op == OpMinus;
    const int32_t top = RunTokens(slot, stack, context);
    index = context->Count;
    if (context->Error)
        return 0;
    MacroValue& value = stack->Values[top];
    int32_t integer;
    if (!ReadInteger(context->Text->MacroVariables, value, &integer))
        return Stop(context, MessageId::VariableTypeMismatch, 0);
    value.Kind = KindInteger;
    value.Integer = minus ? static_cast<int32_t>(0u - static_cast<uint32_t>(integer)) : integer;
    slot = top;
    NEXT_TOKEN();
}
define:
    context->Count = index;
    return Stop(context, MessageId::ErrorAnalysis, 0);
call : {
    context->Position = token->A;
    context->Count = index;
    const int32_t top = token->Op >= OpFirstUser ? CallUserFunction(token->Op - OpFirstUser, token->B, slot, stack, context)
                                                 : CallBuiltin(*token, slot, stack, context);
    index = context->Count;
    if (top < 0 || context->Error)
        return 0;
    slot = top;
    NEXT_TOKEN();
}
#undef NEXT_TOKEN
}

} // namespace

int32_t RunTokens(int32_t slot, MacroStack* stack, MacroContext* context)
{
    // A segment of one variable or number, the commonest argument, is
    // pushed here, without the interpreter's setup.
    const int32_t index = context->Count + 1;
    const MacroToken& token = context->Tokens[index];
    if (stack && context->Error == 0 && (token.Op == OpVariable || token.Op == OpInteger)
        && context->Tokens[index + 1].Op == OpEnd) {
        if (!PushValue(stack, &slot, context, index))
            return 0;
        MacroValue& value = stack->Values[slot];
        value.Kind = token.Op;
        if (token.Op == OpInteger)
            value.Integer = token.A;
        else
            value.Index = context->VariableMap ? context->VariableMap[token.A] : token.A;
        context->Count = index + 1;
        return slot;
    }
    return RunSegments(slot, stack, context, 1);
}

int32_t RunSegments(int32_t slot, MacroStack* stack, MacroContext* context, int32_t segments)
{
    if (!stack) {
        while (segments-- > 0)
            SkipSegment(context);
        return 0;
    }
    return RunProgram(slot, stack, context, segments, -1, 0);
}

void RunLoopTurn(int32_t slot, MacroStack* stack, MacroContext* context, int32_t actions, int32_t test)
{
    RunProgram(slot + 1, stack, context, actions, test, slot);
}

namespace {

// A stack of `capacity` elements, or false with 218 set.
bool CreateMacroStack(MacroStack* stack, int32_t capacity, MacroContext* context)
{
    stack->Capacity = capacity;
    stack->Values = static_cast<MacroValue*>(AllocVec(size_t(capacity) * sizeof(MacroValue), MEMF_CLEAR));
    return stack->Values || Fail(context, MessageId::NotEnoughMemory);
}

} // namespace

void Execute(MacroValue* result, MacroContext* context)
{
    context->Count = -1;
    context->Error = 0;
    result->Kind = KindNone;
    MacroStack stack;
    if (!CreateMacroStack(&stack, 10, context))
        return;
    const int32_t top = RunTokens(-1, &stack, context);
    if (top != 0)
        SetMacroError(context, MessageId::ErrorAnalysis);
    if (context->Error == 0)
        *result = stack.Values[0];
    FreeVec(stack.Values);
}

int Evaluate(TextRecord* record, const char* text, MacroValue* result, CommandPool* pool, RexxMsg* rexxMsg)
{
    MacroContext context{};
    context.Text = record;
    context.Rexx = rexxMsg;
    context.Pool = pool;
    result->Kind = KindNone;
    if (std::strncmp(text, "DEF ", 4) == 0) {
        if (DefineFunction(text, result, &context) != 0)
            RecordFunctionName(record, OpDefine);
    } else {
        context.Tokens = static_cast<MacroToken*>(AllocVec(InitialTokens * sizeof(MacroToken), MEMF_ANY));
        context.Capacity = InitialTokens;
        if (!context.Tokens)
            SetMacroError(&context, MessageId::NotEnoughMemory);
        else if (CompileExpression(text, &context) == 0) {
            FuseTokens(context.Tokens, context.Count);
            Execute(result, &context);
        }
    }
    if (context.Error == 0) {
        if (const int error = ResolveValue(record, result))
            SetMacroError(&context, MessageId{error});
        else if (result->Kind != KindInteger && result->Kind != KindString)
            SetMacroError(&context, MessageId::AllocationImpossible);
    }
    FreeVec(context.Tokens);
    return context.Error;
}

int32_t NextIntegerArgument(int32_t* slotRef, MacroStack* stack, MacroContext* context)
{
    const int32_t at = RunTokens(*slotRef, stack, context);
    if (context->Error)
        return 0;
    MacroValue& value = stack->Values[at];
    if (ResolveToInteger(context->Text, &value) != 0)
        return Stop(context, MessageId::VariableTypeMismatch, 0);
    return value.Integer;
}

char* NextStringArgument(int32_t* slotRef, MacroStack* stack, MacroContext* context)
{
    const int32_t at = RunTokens(*slotRef, stack, context);
    if (context->Error)
        return nullptr;
    MacroValue& value = stack->Values[at];
    if (ResolveValue(context->Text, &value) != 0 || value.Kind != KindString)
        return Stop<char*>(context, MessageId::ArgumentTypeMismatch, nullptr);
    return value.String;
}

void RecordFunctionName(TextRecord* record, int32_t code)
{
    if (!record)
        return;
    const char* name = code >= OpFirstUser ? NameOfUserFunction(code - OpFirstUser)
                                           : MacroFunctionRow(code - OpDefine).Name;
    std::snprintf(record->MacroScratch, sizeof record->MacroScratch, "%s %s", GetString(MessageId{150}), name);
}
