#pragma once
// Host ports for the tests of the script layer, each served by a task of
// its own: a command comes back as its own RESULT with RC 0, except
//   "fail"          RC 20
//   "set NAME VAL"  sets variable NAME of the sending script to VAL, RC 0
// Sockets run in a fresh runtime directory while the fixture lives.
#include "platform/exec/ports.h"
#include "platform/exec/tasks.h"
#include "platform/rexx/host_ports.h"
#include "platform/rexx/host_sockets.h"
#include "platform/rexx/rexx_message.h"
#include "platform/rexx/script_server.h"
#include "temp_dir.h"

#include <gtest/gtest.h>

#include <atomic>
#include <cstdlib>
#include <cstring>
#include <string>
#include <vector>

inline void AnswerEcho(RexxMsg* message)
{
    const char* command = message->rm_Args[0];
    message->rm_Result1 = 0;
    message->rm_Result2 = 0;
    if (std::strcmp(command, "fail") == 0) {
        message->rm_Result1 = 20;
    } else {
        if (std::strncmp(command, "set ", 4) == 0) {
            std::string rest(command + 4);
            size_t blank = rest.find(' ');
            SetRexxVarFromMsg(rest.substr(0, blank).c_str(), rest.substr(blank + 1).c_str(), message);
        }
        message->rm_Result2 = reinterpret_cast<intptr_t>(CreateArgstring(command, LengthArgstring(command)));
    }
    ReplyRexxMsg(message);
}

class EchoHosts : public ::testing::Test {
protected:
    void StartHosts(int count)
    {
        setenv("XDG_RUNTIME_DIR", runtime.path.c_str(), 1);
        ASSERT_EQ(StartHostSockets(), "");
        for (int host = 0; host < count; ++host) {
            std::string name = "Echo." + std::to_string(host);
            std::atomic<bool> open{false};
            ASSERT_NE(CreateNewProc(name.c_str(), [this, name, &open] { Serve(name, &open); }), nullptr);
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
    void Serve(const std::string& name, std::atomic<bool>* open)
    {
        MsgPort* port = OpenHostPort(name.c_str());
        tasks.push_back(FindTask(nullptr));
        open->store(true);
        const uint32_t portSignal = PortSignal(port);
        while (!(Wait(portSignal | SIGBREAKF_CTRL_C) & SIGBREAKF_CTRL_C) || !stopping.load()) {
            while (Message* received = GetMsg(port))
                AnswerEcho(reinterpret_cast<RexxMsg*>(received));
        }
        WithdrawHostPort(port);
        while (Message* received = GetMsg(port))
            AnswerEcho(reinterpret_cast<RexxMsg*>(received));
        DeleteMsgPort(port);
    }

    std::atomic<bool> stopping{false};
    std::vector<Task*> tasks;
};
