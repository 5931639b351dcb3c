#include "platform/exec/tasks.h"

#include "platform/exec/port_record.h"
#include "platform/exec/task_record.h"

#include <chrono>
#include <mutex>
#include <new>
#include <system_error>
#include <thread>
#include <utility>
#include <vector>

namespace {

constexpr int kDosSignal = 8;   // the bit of SIGF_DOS

struct Registry {
    std::mutex lock;
    std::condition_variable changed;
    List running;                       // every live task, started or adopted
    long started = 0;                   // CreateNewProc tasks that have not ended
    std::vector<std::thread> ended;     // threads of ended tasks, to be joined

    Registry() { NewList(&running); }
};

// Never destroyed: tasks may still end while the program exits.
Registry& TheRegistry()
{
    static Registry* registry = new Registry;
    return *registry;
}

// The calling thread's record. An adopted record is freed when its thread
// ends; a started task frees its own at the end of RunTask.
struct CurrentSlot {
    TaskRecord* task = nullptr;
    ~CurrentSlot();
};

thread_local CurrentSlot current;

TaskRecord* FromNode(Node* node)
{
    return node ? Record(reinterpret_cast<Task*>(node)) : nullptr;
}

void DeleteRecord(TaskRecord* task)
{
    DeleteMsgPort(task->pr_MsgPort);
    delete task;
}

void JoinAll(std::vector<std::thread>& threads)
{
    for (std::thread& thread : threads)
        thread.join();
}

std::vector<std::thread> TakeEnded(Registry& registry)
{
    std::lock_guard<std::mutex> hold(registry.lock);
    return std::exchange(registry.ended, {});
}

// Makes a record with its pr_MsgPort; null on failure.
TaskRecord* NewRecord(const char* name)
{
    auto* task = new (std::nothrow) TaskRecord;
    if (!task)
        return nullptr;
    task->tc_Node.ln_Type = NT_TASK;
    if (name) {
        task->name = name;
        task->tc_Node.ln_Name = task->name.c_str();
    }
    task->pr_MsgPort = NewPort(task, kDosSignal);
    if (!task->pr_MsgPort) {
        delete task;
        return nullptr;
    }
    return task;
}

void RunTask(TaskRecord* task)
{
    current.task = task;
    task->entry();
    // Whatever the entry captured goes in this thread, as it was used here.
    task->entry = nullptr;

    Registry& registry = TheRegistry();
    std::vector<std::thread> earlier;
    {
        std::lock_guard<std::mutex> hold(registry.lock);
        Remove(&task->tc_Node);
        // This thread cannot join itself: it leaves its handle for the next
        // task that ends, or for CreateNewProc and WaitForAllTasks, and
        // joins those that ended before it.
        earlier = std::exchange(registry.ended, {});
        registry.ended.push_back(std::move(task->thread));
        --registry.started;
        registry.changed.notify_all();
    }
    current.task = nullptr;
    DeleteRecord(task);
    JoinAll(earlier);
}

} // namespace

CurrentSlot::~CurrentSlot()
{
    if (!task || !task->adopted)
        return;
    Registry& registry = TheRegistry();
    {
        std::lock_guard<std::mutex> hold(registry.lock);
        Remove(&task->tc_Node);
    }
    DeleteRecord(task);
    task = nullptr;
}

TaskRecord* CurrentTask()
{
    if (current.task)
        return current.task;
    TaskRecord* task = NewRecord(nullptr);
    if (!task)
        return nullptr;
    task->adopted = true;
    Registry& registry = TheRegistry();
    {
        std::lock_guard<std::mutex> hold(registry.lock);
        AddTail(&registry.running, &task->tc_Node);
    }
    current.task = task;
    return task;
}

Task* CreateNewProc(const char* name, std::function<void()> entry)
{
    if (!entry)
        return nullptr;
    Registry& registry = TheRegistry();
    std::vector<std::thread> ended = TakeEnded(registry);
    JoinAll(ended);

    TaskRecord* task = NewRecord(name);
    if (!task)
        return nullptr;
    task->entry = std::move(entry);
    std::lock_guard<std::mutex> hold(registry.lock);
    // The registry lock keeps the new thread from ending before its handle
    // is stored in the record.
    try {
        task->thread = std::thread(RunTask, task);
    } catch (const std::system_error&) {
        // std::thread reports a refused thread only by throwing.
        DeleteRecord(task);
        return nullptr;
    }
    AddTail(&registry.running, &task->tc_Node);
    ++registry.started;
    return task;
}

Task* FindTask(const char* name)
{
    if (!name)
        return CurrentTask();
    Registry& registry = TheRegistry();
    std::lock_guard<std::mutex> hold(registry.lock);
    return FromNode(FindName(&registry.running, name));
}

void WaitForAllTasks()
{
    Registry& registry = TheRegistry();
    std::vector<std::thread> ended;
    {
        std::unique_lock<std::mutex> hold(registry.lock);
        registry.changed.wait(hold, [&] { return registry.started == 0; });
        ended = std::exchange(registry.ended, {});
    }
    JoinAll(ended);
}

void Delay(long ticks)
{
    if (ticks > 0)
        std::this_thread::sleep_for(std::chrono::milliseconds(20) * ticks);
}
