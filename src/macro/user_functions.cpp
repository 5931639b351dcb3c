#include "macro/user_functions.h"

#include "frame/protocol/app_globals.h"
#include "macro/evaluator.h"
#include "macro/user_function_body.h"
#include "macro/variables.h"
#include "platform/exec/memory.h"
#include "platform/utility/strings.h"
#include "text/record/char_class.h"

#include <algorithm>
#include <cstring>
#include <new>

namespace {

// A block that readers without the lock may still hold: freed at the end.
struct RetiredBlock {
    RetiredBlock* Next;
    UserFunctionName** Rows; // a replaced row array, or
    UserFunction* Body;      // a replaced body
};

std::atomic<UserFunctionName**> Rows{nullptr};
std::atomic<int32_t> Count{0};
int32_t Capacity = 0;            // under FunctionTableLock
RetiredBlock* Retired = nullptr; // under FunctionTableLock
uint32_t LoopLimit = 500;        // under FunctionTableLock

constexpr int32_t RowGrowth = 10;
// A call's token code, 153 + index, must fit the token's 16 bits.
constexpr int32_t MaxUserFunctions = INT16_MAX - OpFirstUser + 1;

UserFunctionName* RowAt(int32_t index)
{
    return Rows.load(std::memory_order_acquire)[index];
}

void Retire(UserFunctionName** rows, UserFunction* body)
{
    auto* block = static_cast<RetiredBlock*>(AllocVec(sizeof(RetiredBlock), MEMF_CLEAR));
    // Without memory for the note the block is leaked rather than freed
    // under a reader.
    if (!block)
        return;
    block->Rows = rows;
    block->Body = body;
    block->Next = Retired;
    Retired = block;
}

} // namespace

int32_t FindUserFunction(const char* text, int32_t* position)
{
    const int32_t count = Count.load(std::memory_order_acquire);
    UserFunctionName** rows = Rows.load(std::memory_order_acquire);
    for (int32_t index = 0; index < count; ++index) {
        const UserFunctionName* row = rows[index];
        if (row->Hidden.load(std::memory_order_relaxed))
            continue;
        const size_t length = std::strlen(row->Name);
        if (std::strncmp(row->Name, text + *position, length) != 0)
            continue;
        int32_t behind = *position + int32_t(length);
        while (CharClass[static_cast<unsigned char>(text[behind])] & CharSpace)
            ++behind;
        if (text[behind] == '(') {
            *position = behind + 1;
            return index;
        }
    }
    return -1;
}

const char* NameOfUserFunction(int32_t index)
{
    return RowAt(index)->Name;
}

int32_t CallUserFunction(int32_t index, int32_t arguments, int32_t slot, MacroStack* stack, MacroContext* context)
{
    const int32_t code = OpFirstUser + index;
    // The body read once: a redefinition by another text replaces it, and
    // the count must be the one of the body that runs.
    const UserFunction* body = RowAt(index)->Body.load(std::memory_order_acquire);
    if (body->ArgumentCount != arguments) {
        SetMacroError(context, MessageId::BadArgumentNumber);
        RecordFunctionName(context->Text, code);
        return -1;
    }
    for (int32_t argument = 0; argument < arguments; ++argument) {
        RunTokens(slot + argument, stack, context);
        if (context->Error)
            return -1;
    }

    MacroContext run{};
    run.Count = -1;
    run.Tokens = body->Tokens;
    run.Pool = context->Pool;
    run.Text = context->Text;
    run.ArgumentBase = slot + 1;

    constexpr int32_t KeptOnStack = 16;
    int32_t nearMap[KeptOnStack];
    int32_t* map = nearMap;
    if (body->LocalCount > KeptOnStack) {
        map = static_cast<int32_t*>(AllocVec(size_t(body->LocalCount) * sizeof(int32_t), MEMF_ANY));
        if (!map)
            SetMacroError(&run, MessageId::NotEnoughMemory);
    }
    for (int32_t local = 0; local < body->LocalCount && run.Error == 0; ++local) {
        map[local] = FindVariable(context->Text, body->LocalNames[local]);
        if (map[local] < 0)
            SetMacroError(&run, MessageId::VariableCreationImpossible);
    }
    run.VariableMap = map;

    const int32_t top = run.Error ? 0 : RunTokens(slot + arguments, stack, &run);
    if (map != nearMap)
        FreeVec(map);
    if (run.Error) {
        SetMacroError(context, MessageId{run.Error});
        RecordFunctionName(context->Text, code);
        return -1;
    }
    stack->Values[slot + 1] = stack->Values[top];
    return slot + 1;
}

char* CopyDefinition(const char* name, CommandPool* pool)
{
    const char* source = "";
    ObtainSemaphoreShared(&Globals.FunctionTableLock);
    const int32_t count = Count.load(std::memory_order_acquire);
    for (int32_t index = 0; index < count; ++index) {
        const UserFunctionName* row = RowAt(index);
        if (!row->Hidden.load(std::memory_order_relaxed) && Stricmp(row->Name, name) == 0) {
            source = row->Body.load(std::memory_order_acquire)->Source;
            break;
        }
    }
    char* copy = PoolString(pool, source, std::strlen(source));
    ReleaseSemaphore(&Globals.FunctionTableLock);
    return copy;
}

uint32_t LoopIterationLimit()
{
    ObtainSemaphoreShared(&Globals.FunctionTableLock);
    const uint32_t limit = LoopLimit;
    ReleaseSemaphore(&Globals.FunctionTableLock);
    return limit;
}

uint32_t ChangeLoopIterationLimit(uint32_t limit)
{
    ObtainSemaphore(&Globals.FunctionTableLock);
    const uint32_t old = LoopLimit;
    if (limit != 0)
        LoopLimit = limit;
    ReleaseSemaphore(&Globals.FunctionTableLock);
    return old;
}

void FreeUserFunctionBody(UserFunction* function)
{
    if (!function)
        return;
    FreeCommandPool(&function->Strings);
    FreeVec(function->Source);
    FreeVec(function->LocalNames);
    FreeVec(function->Tokens);
    FreeVec(function);
}

void FreeUserFunctions()
{
    ObtainSemaphore(&Globals.FunctionTableLock);
    UserFunctionName** rows = Rows.load();
    for (int32_t index = Count.load() - 1; index >= 0; --index) {
        FreeUserFunctionBody(rows[index]->Body.load());
        FreeVec(rows[index]);
    }
    FreeVec(rows);
    while (RetiredBlock* block = Retired) {
        Retired = block->Next;
        FreeVec(block->Rows);
        FreeUserFunctionBody(block->Body);
        FreeVec(block);
    }
    Rows.store(nullptr);
    Count.store(0);
    Capacity = 0;
    LoopLimit = 500;
    ReleaseSemaphore(&Globals.FunctionTableLock);
}

bool GrowUserFunctionRows()
{
    const int32_t count = Count.load(std::memory_order_relaxed);
    if (count < Capacity)
        return true;
    if (Capacity >= MaxUserFunctions)
        return false;
    const int32_t capacity = std::min(Capacity + RowGrowth, MaxUserFunctions);
    auto* rows = static_cast<UserFunctionName**>(AllocVec(size_t(capacity) * sizeof(UserFunctionName*), MEMF_CLEAR));
    if (!rows)
        return false;
    UserFunctionName** old = Rows.load(std::memory_order_relaxed);
    if (count > 0)
        std::memcpy(rows, old, size_t(count) * sizeof(UserFunctionName*));
    Rows.store(rows, std::memory_order_release);
    Capacity = capacity;
    if (old)
        Retire(old, nullptr);
    return true;
}

UserFunctionName* NewUserFunctionRow()
{
    void* block = AllocVec(sizeof(UserFunctionName), MEMF_CLEAR);
    return block ? new (block) UserFunctionName{} : nullptr;
}

int32_t PublishUserFunction(UserFunctionName* row, UserFunction* body, int32_t arguments)
{
    row->Flags.store(static_cast<uint16_t>(0xA0 + arguments), std::memory_order_relaxed);
    row->Body.store(body, std::memory_order_release);
    const int32_t index = Count.load(std::memory_order_relaxed);
    Rows.load(std::memory_order_relaxed)[index] = row;
    Count.store(index + 1, std::memory_order_release);
    return index;
}

void ReplaceUserFunction(UserFunctionName* row, UserFunction* body)
{
    row->Flags.store(static_cast<uint16_t>(0xA0 + body->ArgumentCount), std::memory_order_relaxed);
    UserFunction* old = row->Body.exchange(body, std::memory_order_acq_rel);
    Retire(nullptr, old);
}

UserFunctionName* UserFunctionRow(int32_t index)
{
    return RowAt(index);
}
