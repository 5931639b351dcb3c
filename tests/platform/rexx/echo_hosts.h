#pragma once
// Echo host ports (echo_host.h) named "Echo.0" and up, each served by a
// task of its own, with the sockets running in a fresh runtime directory
// while the fixture lives.
#include "platform/exec/ports.h"
#include "platform/exec/tasks.h"
#include "platform/rexx/host_ports.h"
#include "platform/rexx/host_sockets.h"
#include "echo_host.h"
#include "temp_dir.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

class EchoHosts : public ::testing::Test {
protected:
    void StartHosts(int count)
    {
        setenv("XDG_RUNTIME_DIR", runtime.path.c_str(), 1);
        ASSERT_EQ(StartHostSockets(), "");
        for (int host = 0; host < count; ++host) {
            std::string name = "Echo." + std::to_string(host);
            std::atomic<bool> open{false};
            ASSERT_NE(CreateNewProc(name.c_str(), [this, name, &open] {
                tasks.push_back(FindTask(nullptr));
                ServeEchoHost(name.c_str(), &open, &stopping);
            }), nullptr);
            while (!open.load())
                Delay(1);
        }
    }

    void TearDown() override
    {
        stopping.store(true);
        for (Task* task : tasks)
            Signal(task, SIGBREAKF_CTRL_C);
        WaitForAllTasks();
        StopHostSockets();
    }

    TempDir runtime;

private:
    std::atomic<bool> stopping{false};
    std::vector<Task*> tasks;
};
