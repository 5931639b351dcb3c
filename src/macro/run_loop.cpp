#include "macro/run_loop.h"

#include "frame/protocol/idle.h"
#include "macro/command_pool.h"
#include "macro/evaluator.h"
#include "macro/user_functions.h"
#include "macro/variables.h"
#include "platform/display/intuition.h"
#include "platform/exec/tasks.h"
#include "text/record/text_record.h"

namespace {

constexpr uint32_t LoopIDCMP = IDCMP_CLOSEWINDOW | IDCMP_RAWKEY;
constexpr uint16_t EscCode = 0x45;
constexpr uint16_t CtrlQualifier = 0x08;
constexpr uint16_t AltQualifiers = 0x10 | 0x20;

// The text window as a running loop sees it.
struct LoopWatch {
    Window* Watched = nullptr; // null: nothing to watch
    Task* Self = nullptr;
    uint32_t Signal = 0;
    uint32_t OldIDCMP = 0;
    bool LookNow = false; // look at the port whatever the flag says
};

// Replies to every queued message; true if one of them asks to stop.
bool DrainForStop(Window* window)
{
    bool stop = false;
    while (Message* message = GetMsg(window->UserPort)) {
        const auto* event = reinterpret_cast<const IntuiMessage*>(message);
        if (event->Class == IDCMP_CLOSEWINDOW || (event->Class == IDCMP_RAWKEY && event->Code == EscCode && (event->Qualifier & CtrlQualifier) && (event->Qualifier & AltQualifiers)))
            stop = true;
        ReplyMsg(message);
    }
    return stop;
}

// The flag goes to -1 first and the port is drained afterwards, so a
// message that arrives in between fires the exception rather than being
// missed.
void Arm(LoopWatch* watch)
{
    watch->Self->BreakFlag.store(-1);
    SetExcept(watch->Signal, watch->Signal);
}

void StartWatch(TextRecord* record, LoopWatch* watch)
{
    if (!record || !(record->TextState & WindowOpen) || !record->Window)
        return;
    watch->Watched = record->Window;
    watch->Self = FindTask(nullptr);
    watch->Signal = PortSignal(record->Window->UserPort);
    watch->OldIDCMP = record->Window->IDCMPFlags;
    watch->LookNow = true;
    ModifyIDCMP(record->Window, LoopIDCMP);
    Arm(watch);
    NoteBreakWatch(true);
}

bool StopAsked(LoopWatch* watch)
{
    if (!watch->Watched)
        return false;
    if (!watch->LookNow && watch->Self->BreakFlag.load(std::memory_order_relaxed) == -1)
        return false;
    watch->LookNow = false;
    Arm(watch);
    return DrainForStop(watch->Watched);
}

void EndWatch(LoopWatch* watch)
{
    if (!watch->Watched)
        return;
    NoteBreakWatch(false);
    if (watch->Self->BreakFlag.load() == -1)
        SetExcept(0, watch->Signal);
    DrainForStop(watch->Watched);
    ModifyIDCMP(watch->Watched, watch->OldIDCMP);
    watch->Self->BreakFlag.store(0);
}

// The turns, between StartWatch and EndWatch. slot + 1 or -1.
int32_t Turn(int32_t slot, MacroStack* stack, MacroContext* context, int32_t count, LoopWatch* watch)
{
    const uint32_t limit = LoopIterationLimit();
    const int32_t testIndex = context->Count;
    // Once the test is an integer, nothing can reach a string that the
    // turn made: variables hold copies of their own, the actions' values
    // are overwritten by the next turn, and the loop's value is a number.
    // The strings go then, so a loop that reads a line a turn holds one
    // line at a time, not the whole text.
    CommandPool* pool = context->Pool;
    const PoolMark mark = pool ? MarkPool(pool) : PoolMark{};
    RunTokens(slot, stack, context);
    for (uint32_t turns = 0;;) {
        if (context->Error)
            return -1;
        MacroValue& test = stack->Values[slot + 1];
        if (test.Kind != KindInteger && ResolveToInteger(context->Text, &test) != 0) {
            SetMacroError(context, MessageId::VariableTypeMismatch);
            return -1;
        }
        if (pool && PoolChangedSince(pool, mark))
            ReleasePoolTo(pool, mark);
        if (test.Integer == 0) {
            // The token index is behind the test: over the actions to the
            // loop's end.
            RunSegments(0, nullptr, context, count - 1);
            return slot + 1;
        }
        RunLoopTurn(slot, stack, context, count - 1, testIndex);
        if (context->Error)
            return -1;
        if (++turns >= limit) {
            SetMacroError(context, MessageId::LoopOverflow);
            return -1;
        }
        if (StopAsked(watch)) {
            SetMacroError(context, MessageId::InterruptionOfCalculations);
            return -1;
        }
    }
}

} // namespace

int32_t RunLoop(int32_t slot, MacroStack* stack, MacroContext* context, int32_t count)
{
    LoopWatch watch;
    StartWatch(context->Text, &watch);
    const int32_t result = Turn(slot, stack, context, count, &watch);
    EndWatch(&watch);
    return result;
}
