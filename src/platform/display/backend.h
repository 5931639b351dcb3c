#pragma once
// The contract between the platform-named display operations and a backend
// (the Qt desktop, or the headless in-memory one), and the program's entry.
//
// Threading contract:
// - The display side is one thread: the backend's event loop (Qt: the OS
//   main thread), or for the headless backend whichever thread posts input.
//   It never waits for a task.
// - A task calls the operations of intuition.h; they reach the backend
//   here. "Sync" methods must have taken effect on return (a backend whose
//   display thread is another thread blocks the caller until done; a call
//   from the display thread itself runs directly). "Async" methods may
//   return at once and take effect later; they copy what they need.
// - The common code owns the Window record and its UserPort; the backend
//   owns its WindowPeer and the RastSurface behind the window's rastport.
// - Input reaches windows through PostWindowMessage and PostDrop, called on
//   the display side.
#include "platform/display/app_window.h"
#include "platform/display/intuition.h"
#include "platform/display/requester_window.h"

#include <cstdint>
#include <functional>

// The backend's own part of a window.
class WindowPeer {
public:
    virtual ~WindowPeer() = default;
};

class DisplayBackend {
public:
    virtual ~DisplayBackend() = default;

    // Runs the display loop on the calling thread and `mainTask` on a task of
    // its own; returns the program's exit status once `mainTask` has
    // returned and the loop has ended.
    virtual int Run(std::function<void()> mainTask) = 0;

    // Sync. The screen record stays valid while locked.
    virtual Screen* LockPubScreen(const char* name) = 0;
    virtual void UnlockPubScreen(Screen* screen) = 0;
    // Sync. Null when there is no such font.
    virtual TextFont* OpenFont(const TextAttr& attr) = 0;
    virtual void CloseFont(TextFont* font) = 0;
    // Measures of a system image (see intuition.h).
    virtual void SystemImageSize(uint32_t which, int16_t height, int16_t* width, int16_t* imageHeight) = 0;

    // Sync. The record is filled from the NewWindow (box, limits, flags,
    // event mask, gadgets, titles, screen, UserPort, a rastport in the
    // screen's font). The backend sets the borders, may adjust the box,
    // sets Peer and WindowPort.Surface, and shows the window. False: could
    // not open (the record is then discarded).
    virtual bool OpenWindow(Window* window) = 0;
    // Sync. After it returns the backend no longer touches the record and
    // posts nothing more for it.
    virtual void CloseWindow(Window* window) = 0;

    // Async.
    virtual void ChangeWindowBox(Window* window, int left, int top, int width, int height) = 0;
    virtual void WindowToFront(Window* window) = 0;
    virtual void WindowToBack(Window* window) = 0;
    virtual void ActivateWindow(Window* window) = 0;
    // A null title leaves that title as it is; the strings are copied.
    virtual void SetWindowTitles(Window* window, const char* windowTitle, const char* screenTitle) = 0;
    virtual void SetBusyPointer(Window* window, bool busy, bool delay) = 0;
    virtual void DisplayBeep(Screen* screen) = 0;
    // Sync: blocks the calling task until the user has chosen a button of
    // `gadgets` ('|' between labels); the answer counts 1, 2, ... from the
    // left and 0 for the rightmost. Never called on the display thread.
    virtual int EasyRequest(Window* window, const char* title, const char* body, const char* gadgets) = 0;
    // Sync. Shows a requester window built from its layout (see
    // requester_window.h) and sets its Peer; false: could not show it.
    // Never called on the display thread.
    virtual bool OpenRequester(RequesterWindow* requester) = 0;
    // Sync. After it returns the backend no longer touches the record.
    virtual void CloseRequester(RequesterWindow* requester) = 0;
    // Async. The task changed a value or the active field: show them.
    virtual void RequesterChanged(RequesterWindow* requester) = 0;
    // Async. The requester window comes to the front and becomes active.
    virtual void RequesterToFront(RequesterWindow* requester) = 0;
    // The gadget list, or a gadget's flags or PropInfo, changed. Called on
    // the owning task's thread, the only one that changes the list: the
    // backend reads the list here.
    virtual void GadgetsChanged(Window* window) = 0;
    virtual void MenuStripChanged(Window* window) = 0;

    // Any thread, also while the display layer holds its own locks: these
    // two must not call back into the display operations.
    virtual void CurrentTime(uint32_t* seconds, uint32_t* micros) = 0;
    virtual uint32_t DoubleClickMicros() = 0;
};

// Installs the backend that the operations use; null uninstalls. Only while
// no task uses the display.
void SetDisplayBackend(DisplayBackend* backend);
DisplayBackend* CurrentDisplayBackend();

// The program's entry: installs `backend`, runs it with `mainTask` (see
// DisplayBackend::Run), uninstalls it and gives the exit status.
int RunDisplay(DisplayBackend& backend, std::function<void()> mainTask);

// Display side. Posts a copy of `event` to the window's UserPort, stamped
// with the window and, when `event` has no time, the backend's clock.
// False when the window is not open or its event mask lacks the class.
// Replied messages are freed on later calls, and all at the end.
bool PostWindowMessage(Window* window, const IntuiMessage& event);
// Display side. Posts one AppMessage with one argument for a file dropped
// at (x, y) of the window. False when the window has no AppWindow.
bool PostDrop(Window* window, const char* directory, const char* name, int x, int y);
// Frees every replied message now; at the end of a run or a test.
void CollectReplies();
