#pragma once
// Internal to the exec layer: the whole record behind a Task. Every Task
// the layer hands out is a TaskRecord.
#include "platform/exec/tasks.h"

#include <atomic>
#include <condition_variable>
#include <cstdint>
#include <functional>
#include <mutex>
#include <string>
#include <thread>

struct TaskRecord : Task {
    std::string name;
    std::function<void()> entry;
    std::thread thread;   // empty for an adopted thread
    bool adopted = false;

    std::atomic<uint32_t> sigAlloc{0xffff};
    std::atomic<uint32_t> sigRecvd{0};
    // The mask Wait sleeps on, 0 while the task runs. Signal wakes the task
    // only when a bit it sends is in here, so a busy receiver costs no wake.
    std::atomic<uint32_t> sigWait{0};
    std::atomic<uint32_t> sigExcept{0};
    std::mutex sleepLock;
    std::condition_variable wake;
};

inline TaskRecord* Record(Task* task)
{
    return static_cast<TaskRecord*>(task);
}

// The calling thread's record; adopts the thread on first use.
TaskRecord* CurrentTask();

// Signal for a putter at one of the task's ports: the task is woken after
// its sleep lock is let go, so it does not wake only to wait for that lock.
// Safe because the task cannot end while the putter holds its port.
void SignalFromPort(TaskRecord* task, uint32_t signals);

// Frees a bit of `task` from 16 to 31; other bits are ignored.
void FreeSignalOf(TaskRecord* task, int signalNumber);
