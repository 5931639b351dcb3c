#include "builtins/script_functions.h"

#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "frame/window/busy.h"
#include "macro/evaluator.h"
#include "macro/handler_values.h"
#include "macro/variables.h"
#include "platform/dos/paths.h"
#include "platform/exec/memory.h"
#include "platform/exec/semaphores.h"
#include "platform/rexx/rexx_message.h"
#include "platform/utility/strings.h"
#include "services/rexx/script_message.h"
#include "services/rexx/script_names.h"
#include "services/rexx/scripts_out.h"
#include "text/record/text_record.h"

#include <cstdio>
#include <cstring>

namespace {

// The longest name TEXTS takes for its stem, so "NAME.i" stays a name.
constexpr size_t MaxStemLength = 29;

const char* PortName(const TextRecord* text)
{
    return text->HostPort && text->HostPort->mp_Node.ln_Name ? text->HostPort->mp_Node.ln_Name : "";
}

bool NamesText(const TextRecord* text, const char* name)
{
    if (Stricmp(text->FileName, name) == 0)
        return true;
    char joined[JoinedPathSize];
    for (const char* directory : {text->FileDirectory, text->LastDirectory}) {
        JoinPath(directory, text->FileName, joined);
        if (Stricmp(joined, name) == 0)
            return true;
    }
    return false;
}

// The argument at `at` as the text a script receives: an integer in
// decimal, a string as it stands. Null with the error set.
const char* ArgumentText(int32_t at, MacroStack* stack, MacroContext* context, char* number)
{
    MacroValue& value = stack->Values[at];
    if (const int error = ResolveValue(context->Text, &value)) {
        SetMacroError(context, MessageId{error});
        return nullptr;
    }
    if (value.Kind == KindString)
        return value.String;
    std::snprintf(number, 16, "%ld", static_cast<long>(value.Integer));
    return number;
}

} // namespace

int32_t CallFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const int32_t arguments = context->Tokens[context->Count].B;
    const char* name = arguments > 0 ? NextStringArgument(&slot, stack, context) : nullptr;
    if (!name)
        return FailHandler(context, arguments > 0 ? MessageId::ArgumentTypeMismatch : MessageId::BadArgumentNumber);
    int error = 0;
    RexxMsg* message = NewScriptMessage(context->Text, name, &error);
    if (!message)
        return FailHandler(context, MessageId{error});
    int32_t last = slot + 1;
    for (int32_t argument = 1; argument < arguments; ++argument) {
        if (argument == MAXRMARG) {
            FreeRexxMsg(message);
            return FailHandler(context, MessageId::BadArgumentNumber);
        }
        last = RunTokens(slot, stack, context);
        char number[16];
        const char* text = context->Error ? nullptr : ArgumentText(last, stack, context, number);
        if (text && !(message->rm_Args[argument] = CreateArgstring(text, long(std::strlen(text)))))
            SetMacroError(context, MessageId::NotEnoughMemory);
        if (context->Error) {
            FreeRexxMsg(message);
            return -1;
        }
    }
    message->rm_Action = RXFUNC | uint32_t(arguments - 1);
    if (!SendToScriptServer(context->Text, message)) {
        FreeRexxMsg(message);
        return FailHandler(context, MessageId{140});
    }
    return last;
}

int32_t LockFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    if (!context->Rexx)
        return FailHandler(context, MessageId::ForbiddenInDirectMode);
    LockTextWindow(context->Text);
    return IntegerResult(slot, context->Text->BusyDepth, stack);
}

int32_t UnlockFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    UnlockTextWindow(context->Text);
    return IntegerResult(slot, context->Text->BusyDepth, stack);
}

int32_t RexxPathFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    char old[ScriptPathSize];
    ExchangeScriptPath(stack->Values[slot].String, old);
    return StringResult(slot, old, stack, context);
}

int32_t RexxPortFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    const char* name = stack->Values[slot].String;
    if (*name == '\0')
        return StringResult(slot, PortName(context->Text), stack, context);
    char port[64] = "";
    ObtainSemaphoreShared(&Globals.TextListLock);
    for (const TextRecord* text = Globals.Texts.First; text; text = text->NextText) {
        if (NamesText(text, name)) {
            Strlcpy(port, PortName(text), sizeof port);
            break;
        }
    }
    ReleaseSemaphore(&Globals.TextListLock);
    return StringResult(slot, port, stack, context);
}

int32_t SendCommandFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    int32_t next = slot;
    const char* command = NextStringArgument(&next, stack, context);
    if (!command)
        return -1;
    const char* port = stack->Values[slot].String;
    const size_t length = std::strlen(command) + 1;
    auto* copy = static_cast<char*>(AllocVec(length, MEMF_PUBLIC));
    if (!copy)
        return FailHandler(context, MessageId::NotEnoughMemory);
    std::memcpy(copy, command, length);
    bool sent = false;
    ObtainSemaphoreShared(&Globals.TextListLock);
    for (TextRecord* text = Globals.Texts.First; text && !sent; text = text->NextText) {
        if (Stricmp(PortName(text), port) == 0)
            sent = SendToText(text, CMD_RUN_MACRO, reinterpret_cast<intptr_t>(copy)) != 0;
    }
    ReleaseSemaphore(&Globals.TextListLock);
    if (!sent) {
        FreeVec(copy);
        return FailHandler(context, MessageId::IncorrectArgumentValue);
    }
    return slot;
}

int32_t TextsFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    if (!context->Rexx)
        return FailHandler(context, MessageId::ForbiddenInDirectMode);
    const char* stem = stack->Values[slot].String;
    if (*stem == '\0' || std::strlen(stem) > MaxStemLength)
        return FailHandler(context, MessageId::IncorrectArgumentValue);
    int32_t count = 0;
    ObtainSemaphoreShared(&Globals.TextListLock);
    for (const TextRecord* text = Globals.Texts.First; text && !context->Error; text = text->NextText) {
        char name[48];
        std::snprintf(name, sizeof name, "%s.%ld", stem, static_cast<long>(count));
        if (SetRexxVarFromMsg(name, PortName(text), context->Rexx) != 0)
            SetMacroError(context, MessageId::VariableCreationImpossible);
        ++count;
    }
    ReleaseSemaphore(&Globals.TextListLock);
    return context->Error ? -1 : IntegerResult(slot, count, stack);
}
