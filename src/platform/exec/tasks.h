#pragma once
// Tasks are threads with a record: a name, 32 signal bits, a message port of
// their own (pr_MsgPort) and a break flag. The thread that calls any exec
// function without being a task started here (the program's first thread, a
// test's main thread) is adopted as a task on first use.
#include "platform/exec/lists.h"

#include <atomic>
#include <cstdint>
#include <functional>

struct MsgPort;

constexpr uint32_t SIGBREAKF_CTRL_C = 1u << 12;
constexpr uint32_t SIGBREAKF_CTRL_D = 1u << 13;
constexpr uint32_t SIGBREAKF_CTRL_E = 1u << 14;
constexpr uint32_t SIGBREAKF_CTRL_F = 1u << 15;

struct Task {
    Node tc_Node;                 // ln_Name is the task's name
    MsgPort* pr_MsgPort = nullptr;
    void* tc_UserData = nullptr;
    // Set to 1 when a signal of the armed exception mask arrives (SetExcept);
    // read and cleared by the task itself.
    std::atomic<int16_t> BreakFlag{0};
};

// Starts `entry` on a new thread as a task named `name`. The name is copied.
// Null on failure. The task ends when `entry` returns; its record and its
// pr_MsgPort are freed then, and FindTask no longer finds it.
Task* CreateNewProc(const char* name, std::function<void()> entry);

// With a name: a running task of that name (exact), or null. With null: the
// calling task.
Task* FindTask(const char* name);

// Blocks until every task started by CreateNewProc has ended and been
// joined. For the end of the program and of tests.
void WaitForAllTasks();

// Signals. Bits 0 to 15 are the system's (the four break bits among them);
// AllocSignal(-1) gives a free bit from 16 to 31, or -1 if none is free.
int AllocSignal(int signalNumber);
void FreeSignal(int signalNumber);
// Sets bits in a task's received signals and wakes it if it waits on any.
void Signal(Task* task, uint32_t signals);
// Blocks until one of `mask` is set; clears and returns all set bits of mask.
// A mask of 0 returns 0 at once.
uint32_t Wait(uint32_t mask);
// Changes the caller's received bits selected by `mask` to those of
// `newSignals`; returns the old received bits.
uint32_t SetSignal(uint32_t newSignals, uint32_t mask);
// Arms the caller's exception: while a bit of the armed mask is signalled,
// the task's BreakFlag becomes 1. SetExcept(0, mask) disarms those bits.
// Returns the old armed mask.
uint32_t SetExcept(uint32_t newSignals, uint32_t mask);

// Sleeps for `ticks` fiftieths of a second.
void Delay(long ticks);
