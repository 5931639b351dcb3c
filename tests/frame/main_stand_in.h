#pragma once
// A task that serves main's commands by the dispatcher alone, so that a
// test thread can play a text process and open its window without the
// whole main process.
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/process/dispatch.h"
#include "frame/protocol/send.h"
#include "platform/display/intuition.h"
#include "platform/exec/ports.h"
#include "platform/exec/tasks.h"

#include <atomic>

class MainStandIn {
public:
    MainStandIn()
    {
        Globals.ScreenUseCount = 0;
        Globals.IconNextTop = 1;
        CreateNewProc("Main", [this] {
            MsgPort* port = CreateMsgPort();
            Globals.MainPort = port;
            ready_.store(true);
            while (!stop_.load()) {
                WaitPort(port);
                while (Message* message = GetMsg(port))
                    DispatchCommand(reinterpret_cast<CommandMessage*>(message));
            }
            DeleteMsgPort(port);
        });
        while (!ready_.load())
            Delay(1);
    }
    ~MainStandIn()
    {
        stop_.store(true);
        PostCommand(Globals.MainPort, nullptr, CMD_LOAD_TOOLBAR | CMD_FREE, 0);
        WaitForAllTasks();
        if (Globals.Screen)
            UnlockPubScreen(nullptr, Globals.Screen);
        Globals.Screen = nullptr;
    }
    MainStandIn(const MainStandIn&) = delete;
    MainStandIn& operator=(const MainStandIn&) = delete;

private:
    std::atomic<bool> ready_{false};
    std::atomic<bool> stop_{false};
};
