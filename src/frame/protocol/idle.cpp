#include "frame/protocol/idle.h"

#include "frame/protocol/app_globals.h"
#include "platform/exec/ports.h"
#include "platform/exec/task_waiting.h"
#include "platform/exec/tasks.h"

#include <atomic>
#include <memory>
#include <mutex>
#include <vector>

namespace {

struct LoopMark {
    Task* Process = nullptr;
    std::atomic<bool> Sleeping{false};
    std::atomic<bool> Watching{false};
    std::atomic<uint64_t> Wakes{0};
};

std::mutex MarksLock;
std::vector<std::shared_ptr<LoopMark>> Marks;
thread_local std::shared_ptr<LoopMark> OwnMark;

LoopMark* MarkOfCaller()
{
    if (!OwnMark) {
        OwnMark = std::make_shared<LoopMark>();
        OwnMark->Process = FindTask(nullptr);
        std::lock_guard<std::mutex> hold(MarksLock);
        Marks.push_back(OwnMark);
    }
    return OwnMark.get();
}

} // namespace

uint32_t WaitInLoop(uint32_t mask)
{
    LoopMark* mark = MarkOfCaller();
    mark->Sleeping.store(true);
    uint32_t signals = Wait(mask);
    mark->Sleeping.store(false);
    mark->Wakes.fetch_add(1);
    return signals;
}

void LeaveLoop()
{
    if (!OwnMark)
        return;
    std::lock_guard<std::mutex> hold(MarksLock);
    std::erase(Marks, OwnMark);
    OwnMark.reset();
}

void NoteBreakWatch(bool watching)
{
    // A process outside an event loop has no mark and nobody waits on it.
    if (OwnMark)
        OwnMark->Watching.store(watching);
}

namespace {

bool AtRest(const LoopMark& mark, bool watchingRests)
{
    if (watchingRests && mark.Watching.load())
        return true;
    return mark.Sleeping.load() && TaskIsWaiting(mark.Process);
}

bool AllAtRest(bool watchingRests)
{
    std::lock_guard<std::mutex> hold(MarksLock);
    // Every started text must be in its loop: one that is still starting,
    // or already ending, has no mark or has given it up.
    if (static_cast<long>(Marks.size()) != Globals.TextCount.load() + 1)
        return false;
    std::vector<uint64_t> wakes;
    wakes.reserve(Marks.size());
    for (const auto& mark : Marks) {
        wakes.push_back(mark->Wakes.load());
        if (!AtRest(*mark, watchingRests))
            return false;
    }
    // A process looked at early may have been woken by one looked at later
    // that has gone back to sleep since; its count of wakes shows it.
    for (size_t i = 0; i < Marks.size(); ++i) {
        if (Marks[i]->Wakes.load() != wakes[i] || !AtRest(*Marks[i], watchingRests))
            return false;
    }
    return true;
}

} // namespace

bool ProgramIsIdle()
{
    return AllAtRest(false);
}

bool ProgramTakesInput()
{
    return AllAtRest(true);
}
