#include "platform/display/backend.h"
#include "platform/display/window_registry.h"

#include <algorithm>
#include <new>

namespace {

struct Box {
    int left, top, width, height;
};

// The box within the window's limits and the screen: a maximum of 0 means
// the screen's size, a minimum of 0 one pixel.
Box ClampBox(const Window* window, Box box)
{
    const Screen* screen = window->WScreen;
    int screenWidth = screen ? screen->Width : box.width;
    int screenHeight = screen ? screen->Height : box.height;
    int maxWidth = window->MaxWidth > 0 ? std::min<int>(window->MaxWidth, screenWidth) : screenWidth;
    int maxHeight = window->MaxHeight > 0 ? std::min<int>(window->MaxHeight, screenHeight) : screenHeight;
    int minWidth = std::clamp<int>(window->MinWidth, 1, std::max(maxWidth, 1));
    int minHeight = std::clamp<int>(window->MinHeight, 1, std::max(maxHeight, 1));
    box.width = std::clamp(box.width, minWidth, std::max(maxWidth, minWidth));
    box.height = std::clamp(box.height, minHeight, std::max(maxHeight, minHeight));
    box.left = std::clamp(box.left, 0, std::max(screenWidth - box.width, 0));
    box.top = std::clamp(box.top, 0, std::max(screenHeight - box.height, 0));
    return box;
}

// Drops whatever is still queued at a port that is going away.
void DiscardQueued(MsgPort* port)
{
    while (Message* message = GetMsg(port))
        FreePostedMessage(message);
}

} // namespace

Window* OpenWindow(const NewWindow* newWindow)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (!backend || !newWindow)
        return nullptr;
    Screen* screen = newWindow->Screen;
    if (!screen) {
        // The default public screen lives as long as the backend.
        screen = backend->LockPubScreen(nullptr);
        backend->UnlockPubScreen(screen);
        if (!screen)
            return nullptr;
    }
    auto* window = new (std::nothrow) Window;
    if (!window)
        return nullptr;
    window->MinWidth = newWindow->MinWidth;
    window->MinHeight = newWindow->MinHeight;
    window->MaxWidth = newWindow->MaxWidth;
    window->MaxHeight = newWindow->MaxHeight;
    window->WScreen = screen;
    Box box = ClampBox(window, {newWindow->LeftEdge, newWindow->TopEdge,
                                newWindow->Width > 0 ? newWindow->Width : screen->Width,
                                newWindow->Height > 0 ? newWindow->Height : screen->Height});
    window->LeftEdge = static_cast<int16_t>(box.left);
    window->TopEdge = static_cast<int16_t>(box.top);
    window->Width = static_cast<int16_t>(box.width);
    window->Height = static_cast<int16_t>(box.height);
    window->Flags = newWindow->Flags;
    window->IDCMPFlags = newWindow->IDCMPFlags;
    window->FirstGadget = newWindow->FirstGadget;
    window->Title = newWindow->Title;
    window->ScreenTitle = newWindow->ScreenTitle;
    window->RPort = &window->WindowPort;
    window->WindowPort.Font = screen->RastPort.Font;
    window->UserPort = CreateMsgPort();
    if (!window->UserPort) {
        delete window;
        return nullptr;
    }
    // Registered first, so that what the backend posts while opening (the
    // activation) arrives.
    RegisterWindow(window);
    if (!backend->OpenWindow(window)) {
        UnregisterWindow(window);
        DiscardQueued(window->UserPort);
        DeleteMsgPort(window->UserPort);
        delete window;
        return nullptr;
    }
    return window;
}

void CloseWindow(Window* window)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (!backend || !window)
        return;
    UnregisterWindow(window);
    backend->CloseWindow(window);
    DiscardQueued(window->UserPort);
    DeleteMsgPort(window->UserPort);
    delete window;
}

bool ModifyIDCMP(Window* window, uint32_t flags)
{
    if (!window)
        return false;
    window->IDCMPFlags = flags;
    return true;
}

void SetWindowTitles(Window* window, const char* windowTitle, const char* screenTitle)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (!backend || !window)
        return;
    const char* const unchanged = reinterpret_cast<const char*>(-1);
    const char* newWindowTitle = nullptr;
    const char* newScreenTitle = nullptr;
    if (windowTitle != unchanged) {
        window->Title = windowTitle;
        newWindowTitle = windowTitle ? windowTitle : "";
    }
    if (screenTitle != unchanged) {
        window->ScreenTitle = screenTitle;
        newScreenTitle = screenTitle ? screenTitle : "";
    }
    if (newWindowTitle || newScreenTitle)
        backend->SetWindowTitles(window, newWindowTitle, newScreenTitle);
}

void WindowToFront(Window* window)
{
    if (DisplayBackend* backend = CurrentDisplayBackend(); backend && window)
        backend->WindowToFront(window);
}

void WindowToBack(Window* window)
{
    if (DisplayBackend* backend = CurrentDisplayBackend(); backend && window)
        backend->WindowToBack(window);
}

void ActivateWindow(Window* window)
{
    if (DisplayBackend* backend = CurrentDisplayBackend(); backend && window)
        backend->ActivateWindow(window);
}

void ChangeWindowBox(Window* window, int left, int top, int width, int height)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (!backend || !window)
        return;
    Box box = ClampBox(window, {left, top, width, height});
    backend->ChangeWindowBox(window, box.left, box.top, box.width, box.height);
}

void MoveWindow(Window* window, int dx, int dy)
{
    if (!window)
        return;
    ChangeWindowBox(window, window->LeftEdge + dx, window->TopEdge + dy, window->Width, window->Height);
}

void SetWindowPointer(Window* window, bool busy, bool delay)
{
    if (DisplayBackend* backend = CurrentDisplayBackend(); backend && window)
        backend->SetBusyPointer(window, busy, delay);
}

void ClearPointer(Window* window)
{
    SetWindowPointer(window, false, false);
}

void DisplayBeep(Screen* screen)
{
    if (DisplayBackend* backend = CurrentDisplayBackend())
        backend->DisplayBeep(screen);
}

int AddGList(Window* window, Gadget* gadget, int position, int count, Requester*)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (!backend || !window || !gadget)
        return -1;
    // The run of gadgets to link: `count` of them, or all (-1).
    Gadget* last = gadget;
    for (int taken = 1; last->NextGadget && (count < 0 || taken < count); ++taken)
        last = last->NextGadget;
    Gadget** link = &window->FirstGadget;
    int at = 0;
    while (*link && (position < 0 || at < position)) {
        link = &(*link)->NextGadget;
        ++at;
    }
    last->NextGadget = *link;
    *link = gadget;
    backend->GadgetsChanged(window);
    return at;
}

void RefreshGList(Gadget* gadget, Window* window, Requester*, int)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (backend && window && gadget)
        backend->GadgetsChanged(window);
}

void NewModifyProp(Gadget* gadget, Window* window, Requester*, uint16_t flags, uint16_t horizPot,
                   uint16_t vertPot, uint16_t horizBody, uint16_t vertBody, int)
{
    if (!gadget || gadget->GadgetType != GTYP_PROPGADGET || !gadget->SpecialInfo)
        return;
    auto* prop = static_cast<PropInfo*>(gadget->SpecialInfo);
    // KNOBHIT belongs to the display side: it tells what the user holds.
    prop->Flags = static_cast<uint16_t>((flags & ~KNOBHIT) | (prop->Flags & KNOBHIT));
    prop->HorizPot = horizPot;
    prop->VertPot = vertPot;
    prop->HorizBody = horizBody;
    prop->VertBody = vertBody;
    DisplayBackend* backend = CurrentDisplayBackend();
    if (backend && window)
        backend->GadgetsChanged(window);
}

bool SetMenuStrip(Window* window, Menu* menu)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (!backend || !window)
        return false;
    window->MenuStrip = menu;
    backend->MenuStripChanged(window);
    return true;
}

void ClearMenuStrip(Window* window)
{
    SetMenuStrip(window, nullptr);
}

void CurrentTime(uint32_t* seconds, uint32_t* micros)
{
    uint32_t s = 0;
    uint32_t m = 0;
    if (DisplayBackend* backend = CurrentDisplayBackend())
        backend->CurrentTime(&s, &m);
    if (seconds)
        *seconds = s;
    if (micros)
        *micros = m;
}

bool DoubleClick(uint32_t seconds1, uint32_t micros1, uint32_t seconds2, uint32_t micros2)
{
    DisplayBackend* backend = CurrentDisplayBackend();
    if (!backend)
        return false;
    int64_t elapsed = (static_cast<int64_t>(seconds2) - static_cast<int64_t>(seconds1)) * 1000000 +
                      (static_cast<int64_t>(micros2) - static_cast<int64_t>(micros1));
    return elapsed >= 0 && elapsed <= static_cast<int64_t>(backend->DoubleClickMicros());
}
