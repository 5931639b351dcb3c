#include "frame/process/screen.h"

#include "config/toolbars.h"
#include "frame/process/main_handlers.h"
#include "frame/process/search_window.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "platform/display/intuition.h"
#include "text/record/settings.h"

#include <algorithm>

void ObtainScreen()
{
    if (Globals.Screen)
        return;
    if (Globals.PubScreenName[0])
        Globals.Screen = LockPubScreen(Globals.PubScreenName);
    if (!Globals.Screen)
        Globals.Screen = LockPubScreen(nullptr);
    Screen* screen = Globals.Screen;
    if (!screen)
        return;
    std::lock_guard<std::mutex> hold(ScreenSettingsLock());
    Settings.ScreenWidth = static_cast<uint16_t>(screen->Width);
    Settings.ScreenHeight = static_cast<uint16_t>(screen->Height);
    Settings.WindowWidth = std::min<int16_t>(Settings.WindowWidth, screen->Width);
    Settings.WindowHeight = std::min<int16_t>(Settings.WindowHeight, screen->Height);
    Globals.IconNextLeft = screen->Width - 22;
}

std::mutex& ScreenSettingsLock()
{
    static std::mutex lock;
    return lock;
}

void ReleaseScreen()
{
    if (!Globals.Screen)
        return;
    CloseToolbars();
    CloseSearchWindow();
    UnlockPubScreen(nullptr, Globals.Screen);
    Globals.Screen = nullptr;
}

void HandleGetScreen(CommandMessage* message, int16_t*)
{
    ObtainScreen();
    message->Argument = reinterpret_cast<intptr_t>(Globals.Screen);
}

void HandleScreenUse(CommandMessage*, int16_t*)
{
    ++Globals.ScreenUseCount;
}

void HandleScreenRelease(CommandMessage*, int16_t*)
{
    if (--Globals.ScreenUseCount == 0)
        ReleaseScreen();
}
