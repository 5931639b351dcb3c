#pragma once
// The desktop backend on Qt Widgets.
//
// - Run makes (or takes) the QApplication on the calling thread, which
//   becomes the display thread, starts the program on a task named "main",
//   and ends the event loop when that task returns; it returns after every
//   task has ended.
// - The public screen is the desktop: its available geometry, the desktop's
//   fixed-width font ("topaz.font"), a colour map whose pens 0 to 3 are
//   grey, black, white and blue. Its only name is "Workbench" (or null).
// - Windows are top-level widgets (see QtWindow); window positions are
//   relative to the screen's top-left corner.
// - Synchronous calls from a task block it until the display thread has run
//   them; asynchronous ones are queued in order. The display thread never
//   waits for a task.
// - A text window's menu strip is its menu bar (see QtWindow); the window
//   takes a new strip before MenuStripChanged returns and shows it soon
//   after.
#include "platform/display/backend.h"

#include <atomic>
#include <vector>

class QtWindow;
struct QtTextFont;

class QtDisplayBackend : public DisplayBackend {
public:
    QtDisplayBackend() = default;
    ~QtDisplayBackend() override;

    int Run(std::function<void()> mainTask) override;

    Screen* LockPubScreen(const char* name) override;
    void UnlockPubScreen(Screen* screen) override;
    TextFont* OpenFont(const TextAttr& attr) override;
    void CloseFont(TextFont* font) override;
    void SystemImageSize(uint32_t which, int16_t height, int16_t* width,
                         int16_t* imageHeight) override;

    bool OpenWindow(Window* window) override;
    void CloseWindow(Window* window) override;

    void ChangeWindowBox(Window* window, int left, int top, int width, int height) override;
    void WindowToFront(Window* window) override;
    void WindowToBack(Window* window) override;
    void ActivateWindow(Window* window) override;
    void SetWindowTitles(Window* window, const char* windowTitle, const char* screenTitle) override;
    void SetBusyPointer(Window* window, bool busy, bool delay) override;
    void DisplayBeep(Screen* screen) override;
    int EasyRequest(Window* window, const char* title, const char* body, const char* gadgets) override;
    bool OpenRequester(RequesterWindow* requester) override;
    void CloseRequester(RequesterWindow* requester) override;
    void RequesterChanged(RequesterWindow* requester) override;
    void RequesterToFront(RequesterWindow* requester) override;
    void GadgetsChanged(Window* window) override;
    void MenuStripChanged(Window* window) override;

    void CurrentTime(uint32_t* seconds, uint32_t* micros) override;
    uint32_t DoubleClickMicros() override;

private:
    // Display thread: the screen record, its font and colours, made once.
    void EnsureScreen();
    // Display thread: closes what the program left open and frees the screen.
    void TearDown();

    Screen screen_;
    TextAttr screenFont_;
    QtTextFont* defaultFont_ = nullptr;
    int barExtent_ = 16;
    std::vector<QtWindow*> windows_;
    std::atomic<uint32_t> doubleClickMicros_{400000};
};
