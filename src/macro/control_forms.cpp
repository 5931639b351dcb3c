#include "macro/control_forms.h"

#include "macro/command_pool.h"
#include "macro/compiler.h"
#include "macro/evaluator.h"
#include "macro/fuse_tokens.h"
#include "macro/handler_values.h"
#include "macro/run_loop.h"
#include "macro/user_functions.h"
#include "macro/variables.h"
#include "platform/exec/memory.h"

#include <cstring>

namespace {

int32_t ClearVariables(int32_t slot, MacroStack* stack, MacroContext* context, bool untype)
{
    const int32_t arguments = context->Tokens[context->Count].B;
    for (int32_t argument = 0; argument < arguments; ++argument) {
        const int32_t at = RunTokens(slot, stack, context);
        if (context->Error)
            return -1;
        if (stack->Values[at].Kind != KindVariable)
            return FailHandler(context, MessageId::ArgumentTypeMismatch);
        ClearVariable(context, stack->Values[at].Index, untype);
    }
    return IntegerResult(slot + 1, arguments, stack);
}

} // namespace

int32_t IfForm(int32_t slot, MacroStack* stack, MacroContext* context)
{
    if (stack->Values[slot].Integer != 0) {
        RunTokens(slot - 1, stack, context);
        RunTokens(0, nullptr, context);
    } else {
        RunTokens(0, nullptr, context);
        RunTokens(slot - 1, stack, context);
    }
    return context->Error ? -1 : slot;
}

int32_t WhileForm(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const int32_t arguments = context->Tokens[context->Count].B;
    if (arguments < 2)
        return FailHandler(context, MessageId::BadArgumentNumber);
    if (RunLoop(slot, stack, context, arguments) < 0)
        return -1;
    return IntegerResult(slot + 1, 0, stack);
}

int32_t ForForm(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const int32_t arguments = context->Tokens[context->Count].B;
    if (arguments < 3)
        return FailHandler(context, MessageId::BadArgumentNumber);
    RunTokens(slot, stack, context);
    if (context->Error || RunLoop(slot, stack, context, arguments - 1) < 0)
        return -1;
    return IntegerResult(slot + 1, 0, stack);
}

int32_t InitForm(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return ClearVariables(slot, stack, context, true);
}

int32_t ResetForm(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return ClearVariables(slot, stack, context, false);
}

int32_t SecurityForm(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const int32_t loops = stack->Values[slot].Integer;
    if (loops < 0)
        return FailHandler(context, MessageId::IncorrectArgumentValue);
    return IntegerResult(slot, static_cast<int32_t>(ChangeLoopIterationLimit(static_cast<uint32_t>(loops))), stack);
}

int32_t ExecForm(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const char* given = stack->Values[slot].String;
    if (*given == '\0')
        return FailHandler(context, MessageId::IncorrectArgumentValue);
    // The command is upper-cased in a copy: the argument may be a literal
    // of a user function, which every text shares.
    char* command = PoolString(context->Pool, given, std::strlen(given));
    if (!command)
        return FailHandler(context, MessageId::NotEnoughMemory);
    UpperCaseCommand(command);

    MacroContext run{};
    run.Pool = context->Pool;
    run.Text = context->Text;
    run.Rexx = context->Rexx;
    run.Tokens = static_cast<MacroToken*>(AllocVec(InitialTokens * sizeof(MacroToken), MEMF_ANY));
    run.Capacity = InitialTokens;
    if (!run.Tokens)
        return FailHandler(context, MessageId::NotEnoughMemory);
    MacroValue value{};
    if (CompileExpression(command, &run) == 0) {
        FuseTokens(run.Tokens, run.Count);
        Execute(&value, &run);
    }
    FreeVec(run.Tokens);
    if (run.Error)
        return FailHandler(context, MessageId{run.Error});
    stack->Values[slot] = value;
    return slot;
}

int32_t ReadDefForm(int32_t slot, MacroStack* stack, MacroContext* context)
{
    char* definition = CopyDefinition(stack->Values[slot].String, context->Pool);
    if (!definition)
        return FailHandler(context, MessageId::NotEnoughMemory);
    stack->Values[slot].String = definition;
    return slot;
}
