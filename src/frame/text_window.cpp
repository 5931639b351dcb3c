#include "frame/text_window.h"

#include "frame/busy.h"
#include "frame/command_message.h"
#include "frame/report.h"
#include "frame/send.h"
#include "frame/status.h"
#include "platform/display/intuition.h"
#include "platform/dos/paths.h"
#include "services/messages.h"
#include "text/edit_line.h"
#include "text/text_record.h"

#include <cstdio>
#include <cstring>

constexpr uint32_t TextWindowFlags = WFLG_DRAGBAR | WFLG_DEPTHGADGET | WFLG_CLOSEGADGET | WFLG_ACTIVATE |
                                     WFLG_SIZEGADGET | WFLG_NOCAREREFRESH | WFLG_SIZEBRIGHT |
                                     WFLG_SIZEBBOTTOM | WFLG_REPORTMOUSE | WFLG_NEWLOOKMENUS;

static void SetWindowState(TextRecord* record, uint16_t state)
{
    record->TextState = static_cast<uint16_t>((record->TextState & ~(WindowOpen | Iconified | Hidden)) | state);
}

Window* OpenTextWindow(TextRecord* record)
{
    record->Window = nullptr;
    auto* screen = reinterpret_cast<Screen*>(SendToMainWait(record, CMD_GET_SCREEN, 0));
    if (!screen) {
        ReportAppErrorId(MessageId{239});
        return nullptr;
    }
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
        ReportAppErrorId(MessageId{240});
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
    SendToMain(record, CMD_SCREEN_USE, 0);
    UpdateVisibleSize(record);
    return window;
}

int CloseTextWindow(TextRecord* record)
{
    if (Window* window = record->Window) {
        ClearMenuStrip(window);
        while (record->BusyDepth > 0)
            UnlockTextWindow(record);
        CloseWindow(window);
        SendToMain(record, CMD_SCREEN_RELEASE, 0);
        record->Window = nullptr;
    }
    SetWindowState(record, Hidden);
    return 0;
}

int RaiseTextWindow(TextRecord* record)
{
    if (record->TextState & WindowOpen) {
        WindowToFront(record->Window);
        ActivateWindow(record->Window);
        return 1;
    }
    FlushEditLine(record);
    Window* old = record->Window;
    if (!OpenTextWindow(record)) {
        record->Window = old;
        DisplayBeep(nullptr);
        return 0;
    }
    if (old) {
        record->IconLeft = old->LeftEdge;
        record->IconTop = old->TopEdge;
        CloseWindow(old);
        SendToMain(record, CMD_SCREEN_RELEASE, 0);
    }
    SetWindowState(record, WindowOpen);
    LoadEditLine(record, LineIndex{record->CursorLine}, ColumnIndex{record->CursorColumn});
    return 1;
}

void UpdateVisibleSize(TextRecord* record)
{
    Window* window = record->Window;
    if ((record->TextState & Hidden) || !window)
        return;
    const TextFont* font = window->RPort->Font;
    if (font && font->tf_XSize > 0) {
        record->VisibleColumns = (window->Width - window->BorderLeft - window->BorderRight) / font->tf_XSize;
        record->VisibleRows = (window->Height - window->BorderTop - window->BorderBottom) / (font->tf_YSize + 1);
    }
    if (record->TextState & WindowOpen)
        UpdateStatusTitle(record);
}

void UpdateStatusTitle(TextRecord* record)
{
    if (record->TextState & Busy)
        return;
    if (record->TextState & Iconified) {
        SetStatusText(record, record->FileName);
        return;
    }
    if (!(record->TextState & WindowOpen))
        return;
    char name[256];
    if (record->Options & FullName)
        JoinPath(record->FileDirectory, record->FileName, name);
    else
        std::snprintf(name, sizeof name, "%s", record->FileName);
    int32_t column = record->CursorColumn;
    auto under = static_cast<unsigned char>(column < record->EditLength ? record->EditLine[column] : ' ');
    char title[sizeof record->TitleBuffer];
    std::snprintf(title, sizeof title, "%s%s ($%lx %ld-%ld/%ld)", name,
                  record->Modified ? GetString(MessageId::Modified) : "", static_cast<unsigned long>(under),
                  static_cast<long>(column) + 1, static_cast<long>(record->CursorLine) + 1,
                  static_cast<long>(record->LineCount));
    SetStatusText(record, title);
}
