#pragma once
// Files dropped on a window. A window registered with AddAppWindow gets one
// AppMessage per drop at the port given, which belongs to the task that
// registered (it outlives the window if the task wishes). The receiver
// replies; the display side frees the message on reply.
#include "platform/exec/ports.h"

#include <cstdint>

struct Window;

// One dropped file: its directory (absolute; null when the drop named no
// directory, and the argument should then be skipped) and its name in it.
struct WBArg {
    const char* wa_Directory = nullptr;
    const char* wa_Name = nullptr;
};

constexpr uint16_t AMTYPE_APPWINDOW = 7;

struct AppMessage {
    Message am_Message;
    uint16_t am_Type = AMTYPE_APPWINDOW;
    uintptr_t am_UserData = 0;   // as given to AddAppWindow
    uint32_t am_ID = 0;          // as given to AddAppWindow
    int32_t am_NumArgs = 0;
    WBArg* am_ArgList = nullptr;
    int16_t am_MouseX = 0;       // pixels from the window's top-left corner
    int16_t am_MouseY = 0;
    uint32_t am_Seconds = 0;
    uint32_t am_Micros = 0;
};

struct AppWindow;

// Null on failure (no window, no port, no backend).
AppWindow* AddAppWindow(uint32_t id, uintptr_t userData, Window* window, MsgPort* port);
// Stops drops; messages already posted stay valid until replied. Null is
// allowed.
bool RemoveAppWindow(AppWindow* appWindow);
