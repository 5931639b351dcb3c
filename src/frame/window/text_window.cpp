#include "frame/window/text_window.h"

#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "frame/window/busy.h"
#include "frame/window/refresh.h"
#include "frame/window/report.h"
#include "frame/window/text_window_scrollers.h"
#include "platform/display/app_window.h"
#include "platform/display/intuition.h"
#include "services/messages.h"
#include "text/record/settings.h"
#include "text/record/text_record.h"
#include "text/render/render.h"
#include "text/render/render_pens.h"

#include <algorithm>

constexpr uint32_t TextWindowFlags = WFLG_DRAGBAR | WFLG_DEPTHGADGET | WFLG_CLOSEGADGET | WFLG_ACTIVATE | WFLG_SIZEGADGET | WFLG_NOCAREREFRESH | WFLG_SIZEBRIGHT | WFLG_SIZEBBOTTOM | WFLG_REPORTMOUSE | WFLG_NEWLOOKMENUS;

static void SetWindowState(TextRecord* record, uint16_t state)
{
    record->TextState = static_cast<uint16_t>((record->TextState & ~(WindowOpen | Iconified | Hidden)) | state);
}

// Files dropped on the window arrive at AppWindowPort, made once and kept
// across openings. Without it the window works on, taking no drops.
static void AcceptDrops(TextRecord* record)
{
    record->AppWindow = nullptr;
    if (!record->AppWindowPort)
        record->AppWindowPort = CreateMsgPort();
    if (!record->AppWindowPort)
        return;
    record->AppWindow = AddAppWindow(1, reinterpret_cast<uintptr_t>(record), record->Window, record->AppWindowPort);
    if (!record->AppWindow) {
        DeleteMsgPort(record->AppWindowPort);
        record->AppWindowPort = nullptr;
    }
}

// On a screen that sizes text windows by their cells, a text whose window
// no preference placed opens as many columns and rows of its font as the
// screen asks for, within the screen; later openings keep the box it had.
static void SizeByCells(TextRecord* record, const Screen* screen)
{
    bool openedBefore = record->TextState & (WindowOpen | Iconified | Hidden);
    const TextFont* font = record->TextFont ? record->TextFont : screen->RastPort.Font;
    if (openedBefore || Settings.WindowPlaced || screen->TextColumns <= 0 || !font)
        return;
    int width = screen->WBorLeft + screen->TextColumns * font->tf_XSize + screen->WBorRight;
    int height = screen->WBorTop + screen->TextRows * (font->tf_YSize + 1) + screen->WBorBottom;
    record->WindowWidth = static_cast<int16_t>(std::min<int>(width, screen->Width));
    record->WindowHeight = static_cast<int16_t>(std::min<int>(height, screen->Height - record->WindowTop));
}

Window* OpenTextWindow(TextRecord* record)
{
    record->Window = nullptr;
    auto* screen = reinterpret_cast<Screen*>(SendToMainWait(record, CMD_GET_SCREEN, 0));
    if (!screen) {
        ReportAppErrorId(MessageId::ErrorOpeningScreen);
        return nullptr;
    }
    SizeByCells(record, screen);
    NewWindow description;
    description.MinWidth = 150;
    description.ScreenTitle = "Tavrel Version 5.00";
    description.MinHeight = 54;
    description.MaxWidth = static_cast<int16_t>(record->WindowMaxWidth);
    description.MaxHeight = static_cast<int16_t>(record->WindowMaxHeight);
    description.LeftEdge = record->WindowLeft;
    description.TopEdge = record->WindowTop;
    description.Height = record->WindowHeight;
    description.Width = record->WindowWidth;
    description.IDCMPFlags = TextWindowIDCMP;
    description.Screen = screen;
    description.Type = PUBLICSCREEN;
    description.Flags = TextWindowFlags;
    description.MenuHelp = true;
    Window* window = OpenWindow(&description);
    if (!window) {
        ReportAppErrorId(MessageId::ErrorOpeningWindow);
        return nullptr;
    }
    record->Window = window;
    if (record->MenuStrip)
        SetMenuStrip(window, record->MenuStrip);
    record->TextState = WindowOpen;
    record->WindowLeft = window->LeftEdge;
    record->WindowTop = window->TopEdge;
    record->WindowWidth = window->Width;
    record->WindowHeight = window->Height;
    window->UserData = record;
    if (record->TextFont)
        SetFont(window->RPort, record->TextFont);
    UpdateVisibleSize(record);
    AddScrollers(record);
    ObtainTextPens(record, screen->ColorMap);
    // A new window's area holds whatever the display gave it: it starts in
    // the background colour, with the text drawn on it.
    ClearTextArea(record);
    RefreshAll(record);
    AcceptDrops(record);
    SendToMain(record, CMD_SCREEN_USE, 0);
    UpdateVertScroller(record);
    UpdateHorizScroller(record);
    return window;
}

int CloseTextWindow(TextRecord* record)
{
    if (Window* window = record->Window) {
        ClearMenuStrip(window);
        while (record->BusyDepth > 0)
            UnlockTextWindow(record);
        if (record->TextState & WindowOpen)
            ReleaseTextPens(record, window->WScreen->ColorMap);
        if (record->AppWindow) {
            RemoveAppWindow(record->AppWindow);
            record->AppWindow = nullptr;
        }
        ScrollerBlock* scrollers = FindScrollers(window);
        CloseWindow(window);
        SendToMain(record, CMD_SCREEN_RELEASE, 0);
        record->Window = nullptr;
        FreeScrollers(record, scrollers);
    }
    SetWindowState(record, Hidden);
    return 0;
}
