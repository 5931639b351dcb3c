#pragma once
// A requester asked on a task of its own, as a text's process asks it, and
// answered from the test thread through the headless display, as the user
// answers it.
#include "frame/protocol/app_globals.h"
#include "platform/display/headless/headless_display.h"
#include "platform/display/requester_window.h"
#include "platform/exec/task_waiting.h"
#include "platform/exec/tasks.h"

#include <gtest/gtest.h>

#include <atomic>
#include <chrono>
#include <functional>
#include <thread>

class RequesterTest : public ::testing::Test {
public:
    void SetUp() override
    {
        SetDisplayBackend(&display_);
        Globals.Screen = LockPubScreen(nullptr);
    }

    void TearDown() override
    {
        // A test that failed half way leaves its requester to be closed.
        while (!done_.load()) {
            display_.CloseAnyRequester();
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        }
        released_ = true;
        WaitForAllTasks();
        UnlockPubScreen(nullptr, Globals.Screen);
        Globals.Screen = nullptr;
        CollectReplies();
        SetDisplayBackend(nullptr);
    }

    // Starts `ask` on a task; its result is read by Answer.
    void Start(std::function<int()> ask)
    {
        done_ = false;
        released_ = false;
        task_ = CreateNewProc("asking", [this, ask = std::move(ask)] {
            result_ = ask();
            done_ = true;
            // The task's record stays for Settle until the result is read.
            while (!released_.load())
                std::this_thread::sleep_for(std::chrono::microseconds(50));
        });
    }

    // The requester in front once it is up (null if the task ended first).
    RequesterWindow* Front()
    {
        while (!display_.FrontRequester() && !done_.load())
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        // Up, and ready: the task waits for the user.
        Settle();
        return display_.FrontRequester();
    }

    std::vector<std::string> Shown()
    {
        RequesterWindow* front = Front();
        return front ? display_.RequesterLines(front) : std::vector<std::string>{};
    }

    // Waits for the task and gives its result.
    int Result()
    {
        while (!done_.load())
            std::this_thread::sleep_for(std::chrono::microseconds(50));
        released_ = true;
        WaitForAllTasks();
        return result_.load();
    }

    // The user's actions, each taken by the requester before the next one
    // comes (events that come together count as one burst, whose last
    // event decides).
    void Key(const std::string& name)
    {
        std::string error;
        ASSERT_TRUE(display_.PressKey(name, &error)) << error;
        Settle();
    }

    void Type(const std::string& text)
    {
        ASSERT_TRUE(display_.Type(text));
        Settle();
    }

    void Press(const std::string& label)
    {
        std::string error;
        ASSERT_TRUE(display_.PressRequesterButton(label, &error)) << error;
        Settle();
    }

    void Input(const std::string& text)
    {
        std::string error;
        ASSERT_TRUE(display_.InputRequester(text, &error)) << error;
    }

    void Pick(int row)
    {
        std::string error;
        ASSERT_TRUE(display_.PickRow(row, &error)) << error;
        Settle();
    }

    void Check(const std::string& label)
    {
        std::string error;
        ASSERT_TRUE(display_.FlipCheckBox(label, &error)) << error;
        Settle();
    }

    // Waits until the asking task sleeps with nothing new at its ports.
    void Settle()
    {
        while (!done_.load() && !TaskIsWaiting(task_))
            std::this_thread::sleep_for(std::chrono::microseconds(50));
    }

    HeadlessDisplay display_;
    Task* task_ = nullptr;
    std::atomic<int> result_{0};
    std::atomic<bool> done_{false};
    std::atomic<bool> released_{true};
};
