#pragma once
// Tasks are threads with a record: a name, 32 signal bits, a message port of
// their own (pr_MsgPort) and a break flag. The thread that calls any exec
// function without being a task started here (the program's first thread, a
// test's main thread) is adopted as a task on first use, without a name; its
// record goes when that thread ends.
#include "platform/exec/lists.h"

#include <atomic>
#include <cstdint>
#include <functional>

struct MsgPort;

constexpr uint32_t SIGF_DOS = 1u << 8;   // the signal of pr_MsgPort
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
// pr_MsgPort are freed then, and FindTask no longer finds it. So the result
// stays valid only as long as the new task is known to run, for instance
// while it waits at pr_MsgPort for a start message. Messages still queued
// at pr_MsgPort at the end are left to their owners. Ports the task made
// itself must be deleted by it before `entry` returns.
Task* CreateNewProc(const char* name, std::function<void()> entry);

// With a name: a running task of that name (exact), or null. With null: the
// calling task.
Task* FindTask(const char* name);

// Blocks until every task started by CreateNewProc has ended and been
// joined. For the end of the program and of tests; never called from a task
// started by CreateNewProc. Ended tasks are also joined by later ones.
void WaitForAllTasks();

// Signals. Bits 0 to 15 are the system's (the four break bits and SIGF_DOS
// among them); AllocSignal(-1) gives a free bit from 16 to 31, or -1 if none
// is free. AllocSignal(n) takes bit n if it is free, else -1. A bit starts
// cleared when allocated. Bits of the system are never freed.
int AllocSignal(int signalNumber);
void FreeSignal(int signalNumber);
// Sets bits in a task's received signals and wakes it if it waits on any.
// May be called from any thread, also one that is no task.
void Signal(Task* task, uint32_t signals);
// Blocks until one of `mask` is set; clears and returns all set bits of mask.
// Bits outside `mask` stay as they are. A mask of 0 returns 0 at once.
uint32_t Wait(uint32_t mask);
// Changes the caller's received bits selected by `mask` to those of
// `newSignals`; returns the old received bits.
uint32_t SetSignal(uint32_t newSignals, uint32_t mask);
// Arms the caller's exception: when a bit of the armed mask is signalled,
// the signalling thread sets the task's BreakFlag to 1 and disarms the bits
// that fired, so the task arms again to catch the next one. Bits already
// received when arming do not fire; the received bits are left set for Wait.
// SetExcept(0, mask) disarms those bits. Returns the old armed mask.
uint32_t SetExcept(uint32_t newSignals, uint32_t mask);

// Sleeps for `ticks` fiftieths of a second; 0 or less returns at once.
void Delay(long ticks);
