#pragma once
// Helpers shared by the exec layer's tests.
#include "platform/exec/tasks.h"

#include <gtest/gtest.h>

#include <chrono>
#include <functional>
#include <thread>

#ifndef TAVREL_EXEC_STRESS_DIVISOR
#define TAVREL_EXEC_STRESS_DIVISOR 1
#endif

// Message counts of the stress tests, smaller under the sanitizers.
constexpr long StressCount(long count)
{
    return count / TAVREL_EXEC_STRESS_DIVISOR;
}

inline Task* Start(const char* name, std::function<void()> entry)
{
    Task* task = CreateNewProc(name, std::move(entry));
    EXPECT_NE(task, nullptr) << name;
    return task;
}

// Waits until `done` holds; the limit turns a hang into a failure and is no
// measure of speed.
template <typename Predicate>
bool Eventually(Predicate done)
{
    auto limit = std::chrono::steady_clock::now() + std::chrono::seconds(20);
    while (!done() && std::chrono::steady_clock::now() < limit)
        std::this_thread::sleep_for(std::chrono::milliseconds(1));
    return done();
}

// Tests join their tasks before their locals go; this catches the tasks of
// a test that stopped half-way, so none is left for the next test.
class ExecTest : public ::testing::Test {
protected:
    void TearDown() override { WaitForAllTasks(); }
};
