#include "frame/protocol/app_globals.h"
#include "macro/command_pool.h"
#include "macro/compiler.h"
#include "macro/fuse_tokens.h"
#include "macro/user_function_body.h"
#include "macro/user_functions.h"
#include "platform/exec/memory.h"
#include "text/record/char_class.h"
#include "text/record/text_record.h"

#include <cstring>

namespace {

bool HasClass(char c, uint8_t bits)
{
    return (CharClass[static_cast<unsigned char>(c)] & bits) != 0;
}

void SkipBlanks(const char* text, MacroContext* context)
{
    while (HasClass(text[context->Position], CharSpace))
        ++context->Position;
}

int Failure(MacroContext* context, MessageId id)
{
    SetMacroError(context, id);
    return context->Error;
}

// The name of a new function at Position into `name`; then the `(`.
int ReadNewName(const char* text, MacroContext* context, char* name)
{
    if (!HasClass(text[context->Position], CharUpper | CharLower))
        return Failure(context, MessageId::SyntaxError);
    int length = 0;
    do {
        if (length == MaxUserFunctionName)
            return Failure(context, MessageId::FunctionNameTooLong);
        name[length++] = text[context->Position++];
    } while (HasClass(text[context->Position], CharName));
    name[length] = '\0';
    SkipBlanks(text, context);
    if (text[context->Position] != '(')
        return Failure(context, MessageId::MissingArgument);
    ++context->Position;
    return 0;
}

// The argument list behind the `(`, up to and past the `=`: each argument
// a variable token of the defining text in the context's tokens.
int ReadArguments(const char* text, MacroContext* context)
{
    for (;;) {
        SkipBlanks(text, context);
        if (!HasClass(text[context->Position], CharUpper | CharLower))
            return Failure(context, MessageId::IncorrectArgumentName);
        if (ParseVariable(text, context) != 0) {
            context->Error = static_cast<int16_t>(MessageId::IncorrectArgumentName);
            return context->Error;
        }
        SkipBlanks(text, context);
        if (context->Count > MaxUserArguments)
            return Failure(context, MessageId::BadArgumentNumber);
        const char next = text[context->Position++];
        if (next == ',')
            continue;
        if (next != ')')
            return Failure(context, MessageId::SyntaxError);
        SkipBlanks(text, context);
        if (text[context->Position++] != '=')
            return Failure(context, MessageId::SyntaxError);
        return 0;
    }
}

// Arguments become token 23 with their number; every other variable an
// index into the function's own names, which are bound at each call.
int BindVariables(const MacroContext* arguments, const MacroContext* body, const TextRecord* text,
    UserFunction* function)
{
    for (int32_t first = 0; first < arguments->Count; ++first) {
        for (int32_t second = first + 1; second < arguments->Count; ++second) {
            if (arguments->Tokens[first].A == arguments->Tokens[second].A)
                return int(MessageId::SameArgumentTwice);
        }
    }
    auto* rowOfLocal = static_cast<int32_t*>(AllocVec(size_t(body->Count) * sizeof(int32_t), MEMF_ANY));
    function->LocalNames = static_cast<char(*)[24]>(AllocVec(size_t(body->Count) * 24, MEMF_CLEAR));
    if (!rowOfLocal || !function->LocalNames) {
        FreeVec(rowOfLocal);
        return int(MessageId::NotEnoughMemory);
    }
    for (int32_t index = 0; index < body->Count; ++index) {
        MacroToken& token = function->Tokens[index];
        if (token.Op != OpVariable)
            continue;
        int32_t argument = 0;
        while (argument < arguments->Count && arguments->Tokens[argument].A != token.A)
            ++argument;
        if (argument < arguments->Count) {
            token.Op = OpArgument;
            token.A = argument;
            continue;
        }
        int32_t local = 0;
        while (local < function->LocalCount && rowOfLocal[local] != token.A)
            ++local;
        if (local == function->LocalCount) {
            rowOfLocal[local] = token.A;
            std::memcpy(function->LocalNames[local], text->MacroVariables[token.A].Name, 24);
            ++function->LocalCount;
        }
        token.A = local;
    }
    FreeVec(rowOfLocal);
    return 0;
}

// Steps behind the name: arguments, body, the new function block.
int CompileDefinition(const char* text, MacroContext* context, MacroContext* body, UserFunction** made)
{
    context->Tokens = static_cast<MacroToken*>(AllocVec(InitialTokens * sizeof(MacroToken), MEMF_ANY));
    context->Capacity = InitialTokens;
    context->Count = 0;
    if (!context->Tokens)
        return Failure(context, MessageId::NotEnoughMemory);
    if (ReadArguments(text, context) != 0)
        return context->Error;

    body->Text = context->Text;
    body->Tokens = static_cast<MacroToken*>(AllocVec(InitialTokens * sizeof(MacroToken), MEMF_ANY));
    body->Capacity = InitialTokens;
    if (!body->Tokens)
        return Failure(context, MessageId::NotEnoughMemory);
    if (const int error = CompileExpression(text + context->Position, body))
        return Failure(context, MessageId{error});

    auto* function = static_cast<UserFunction*>(AllocVec(sizeof(UserFunction), MEMF_CLEAR));
    if (!function)
        return Failure(context, MessageId::NotEnoughMemory);
    *made = function;
    function->Tokens = body->Tokens;
    body->Tokens = nullptr;
    function->Strings = *body->Pool;
    *body->Pool = CommandPool{};
    function->ArgumentCount = context->Count;
    if (const int error = BindVariables(context, body, context->Text, function))
        return Failure(context, MessageId{error});
    FuseTokens(function->Tokens, body->Count);
    const char* source = text + 4;
    const size_t length = std::strlen(source);
    function->Source = static_cast<char*>(AllocVec(length + 1, MEMF_ANY));
    if (!function->Source)
        return Failure(context, MessageId::NotEnoughMemory);
    std::memcpy(function->Source, source, length + 1);
    return 0;
}

int Define(const char* text, MacroValue* result, MacroContext* context)
{
    context->Position = 4;
    context->Error = 0;
    context->Depth = 0;
    context->Count = 0;
    SkipBlanks(text, context);
    const int32_t found = FindFunction(text, context);
    if (context->Error)
        return context->Error;
    if (found > 0)
        return Failure(context, MessageId::FunctionAlreadyDefined);

    UserFunctionName* row = nullptr;
    char name[MaxUserFunctionName + 1];
    if (found < 0) {
        row = UserFunctionRow(~found);
        row->Hidden.store(true, std::memory_order_relaxed);
    } else {
        if (!GrowUserFunctionRows())
            return Failure(context, MessageId::NotEnoughMemory);
        if (ReadNewName(text, context, name) != 0)
            return context->Error;
    }

    CommandPool strings;
    MacroContext body{};
    body.Pool = &strings;
    UserFunction* function = nullptr;
    const int error = CompileDefinition(text, context, &body, &function);
    FreeVec(body.Tokens);
    FreeCommandPool(&strings);
    if (error == 0 && found == 0) {
        UserFunctionName* added = NewUserFunctionRow();
        if (added) {
            std::memcpy(added->Name, name, sizeof name);
            PublishUserFunction(added, function, function->ArgumentCount);
            row = added;
        } else {
            Failure(context, MessageId::NotEnoughMemory);
        }
    } else if (error == 0) {
        ReplaceUserFunction(row, function);
    }
    if (row)
        row->Hidden.store(false, std::memory_order_relaxed);
    if (context->Error) {
        FreeUserFunctionBody(function);
        return context->Error;
    }
    result->Kind = KindString;
    result->String = PoolString(context->Pool, row->Name, std::strlen(row->Name));
    if (!result->String)
        return Failure(context, MessageId::NotEnoughMemory);
    return 0;
}

} // namespace

int DefineFunction(const char* text, MacroValue* result, MacroContext* context)
{
    // Held for the whole definition, so that two texts defining at once
    // can't both take the next row.
    ObtainSemaphore(&Globals.FunctionTableLock);
    const int error = Define(text, result, context);
    ReleaseSemaphore(&Globals.FunctionTableLock);
    FreeVec(context->Tokens);
    context->Tokens = nullptr;
    return error;
}
