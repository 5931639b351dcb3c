#pragma once
// The headless backend: the display in memory, for tests and the
// event-script driver.
//
// One public screen, "Workbench" (also the default), of 640 x 200 pixels with
// an 8 x 8 font of baseline 6; every font whose name ends in ".font" opens
// as that font. Every window has the borders 4 (left), 11 (top), 18 (right)
// and 10 (bottom); its rastport is a CellGrid of the text area, 8 x 9 pixels
// a cell. Window operations take effect at once, on the calling thread.
// The clock starts at 1000 seconds and moves only by Sleep; the
// double-click interval is 500 ms.
//
// The test side: input goes to the active window (the last one activated,
// by ActivateWindow, WFLG_ACTIVATE or Activate), at cells of its text area
// (column c is x = 4 + 8c, row r is y = 11 + 9r; negative or beyond the
// area is allowed). Each posting call gives false when there is no active
// window or the window's event mask refused the message. Any one thread may
// post; reading is safe from any thread.
#include "platform/display/backend.h"
#include "platform/display/headless/cell_grid.h"
#include "platform/display/keys.h"

#include <atomic>
#include <condition_variable>
#include <functional>
#include <mutex>
#include <string>
#include <vector>

class HeadlessDisplay final : public DisplayBackend {
public:
    static constexpr int kScreenWidth = 640;
    static constexpr int kScreenHeight = 200;
    static constexpr int kFontWidth = 8;
    static constexpr int kFontHeight = 8;
    static constexpr int kFontBaseline = 6;
    static constexpr int kBorderLeft = 4;
    static constexpr int kBorderTop = 11;
    static constexpr int kBorderRight = 18;
    static constexpr int kBorderBottom = 10;
    static constexpr uint32_t kDoubleClickMicros = 500000;

    HeadlessDisplay();
    ~HeadlessDisplay() override;
    HeadlessDisplay(const HeadlessDisplay&) = delete;
    HeadlessDisplay& operator=(const HeadlessDisplay&) = delete;

    // What Run does on the calling thread while the program's task runs
    // (the event-script driver); Run then waits for the program to end.
    void SetDisplayLoop(std::function<void()> loop);
    bool ProgramEnded() const;

    // Input.
    // INACTIVEWINDOW to the old one, ACTIVEWINDOW to the new one where their
    // event masks take them; false only for a window that is not open.
    bool Activate(Window* window);
    bool PressKey(const KeyStroke& stroke);   // down and up
    // A key by name (see ParseKeyStroke); false with `error` for a bad name.
    bool PressKey(const std::string& name, std::string* error);
    // Each character as a key press; UTF-8 forms of ISO 8859-1 count as one.
    bool Type(const std::string& text);
    bool PressButton(int column, int row, uint16_t qualifier, uint16_t button = IECODE_LBUTTON);
    bool ReleaseButton(int column, int row, uint16_t button = IECODE_LBUTTON);
    // The right or middle button goes to the front requester, if any.
    bool Click(int column, int row, uint16_t qualifier, uint16_t button = IECODE_LBUTTON);
    // IDCMP_MOUSEMOVE, with the qualifiers of the buttons held.
    bool MovePointer(int column, int row);
    bool Tick(int count = 1);
    bool Drop(const std::string& path, int column, int row);
    bool PressCloseGadget();
    // A menu item of the active window picked by the labels shown (see
    // FindMenuNumber), with `qualifier` held; with `help`, Help pressed on
    // it instead. False when the window shows no such item.
    bool PickMenu(const std::string& path, uint16_t qualifier, bool help = false);
    // The window's new outer size, clamped as ChangeWindowBox does; false
    // only without an active window.
    bool Resize(int width, int height);
    // A border gadget by id: held (knob hit or beside it), knob moved to a
    // pot, released. As the user does it: GFLG_SELECTED and KNOBHIT change
    // and GADGETDOWN, MOUSEMOVE, GADGETUP are posted.
    bool PressGadget(uint16_t gadgetId, bool knobHit);
    bool MoveKnob(uint16_t gadgetId, uint16_t pot);
    bool ReleaseGadget(uint16_t gadgetId);
    // Any message, at the pointer's last position.
    bool Post(uint32_t idcmpClass, uint16_t code, uint16_t qualifier, void* address = nullptr);
    void Sleep(uint32_t milliseconds);

    // Requester windows. The front one is the modeless window the user
    // made active, else belongs to the active window, or else is the newest
    // one that belongs to no window and is not modeless; null when none.
    // A requester goes when its task has its answer: act on one only while
    // its task waits for the user (the driver waits for rest first).
    // Keys and the right and middle buttons go to the front requester
    // while there is one. The acting calls give false with `error` when
    // there is no such requester or gadget.
    RequesterWindow* FrontRequester() const;
    // The printed form: "requester: TITLE", then one line an item.
    std::vector<std::string> RequesterLines(const RequesterWindow* requester) const;
    bool PressRequesterButton(const std::string& label, std::string* error);
    // The active field's contents, else the first field's (a file
    // requester's name field takes a path or a name in its drawer).
    bool InputRequester(const std::string& text, std::string* error);
    bool PickRow(int row, std::string* error);
    bool FlipCheckBox(const std::string& label, std::string* error);
    // The page of the tab of that label, the entry of a chooser, or the
    // keyboard to a labelled field (as a click into it); labels compared
    // with case ignored, the '_' left out.
    bool ShowTab(const std::string& label, std::string* error);
    bool ChooseEntry(const std::string& label, const std::string& entry, std::string* error);
    bool ActivateField(const std::string& label, std::string* error);
    // The close gadget of the front requester, or of the newest of all.
    bool CloseFrontRequester();
    bool CloseAnyRequester();
    // The newest open modeless window, or null; opening or activating it
    // makes it the front requester until a window is activated or it
    // closes.
    RequesterWindow* ModelessRequester() const;
    bool ActivateRequester(RequesterWindow* requester);

    // Reading. A window that is not open reads as empty.
    std::vector<Window*> Windows() const;   // open ones, in opening order
    Window* ActiveWindow() const;
    Cell CellAt(const Window* window, int column, int row) const;
    std::string RowText(const Window* window, int row) const;
    int Columns(const Window* window) const;
    int Rows(const Window* window) const;
    std::string Title(const Window* window) const;
    std::string ScreenTitle(const Window* window) const;
    // A title window: no close or size gadget and no gadgets (an iconified
    // text).
    bool IsTitleWindow(const Window* window) const;
    bool IsBusy(const Window* window) const;
    int BeepCount() const;
    int ScreenLocks() const;

    // DisplayBackend.
    int Run(std::function<void()> mainTask) override;
    Screen* LockPubScreen(const char* name) override;
    void UnlockPubScreen(Screen* screen) override;
    TextFont* OpenFont(const TextAttr& attr) override;
    void CloseFont(TextFont* font) override;
    void SystemImageSize(uint32_t which, int16_t height, int16_t* width, int16_t* imageHeight) override;
    bool OpenWindow(Window* window) override;
    void CloseWindow(Window* window) override;
    void ChangeWindowBox(Window* window, int left, int top, int width, int height) override;
    void WindowToFront(Window* window) override;
    void WindowToBack(Window* window) override;
    void ActivateWindow(Window* window) override;
    void SetWindowTitles(Window* window, const char* windowTitle, const char* screenTitle) override;
    void SetBusyPointer(Window* window, bool busy, bool delay) override;
    void DisplayBeep(Screen* screen) override;
    // Nobody is there to answer: the request is written to standard error
    // and answered with the rightmost button, the one that changes nothing.
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
    class Peer;
    Peer* Find(const Window* window) const;   // lock_ held
    IntuiMessage Event(uint32_t idcmpClass, uint16_t code, uint16_t qualifier) const;
    bool PostToActive(IntuiMessage event);
    Gadget* FindGadget(uint16_t gadgetId) const;
    void SetPointer(int column, int row);
    IntuiMessage RequesterEvent(uint32_t idcmpClass, uint16_t code, uint16_t qualifier, uint16_t gadgetEnd = 0) const;
    bool RequesterKey(RequesterWindow* requester, const KeyStroke& stroke);
    bool RequesterButton(RequesterWindow* requester, uint16_t button);
    // Releases the front requester's gadget of that kind and label, a check
    // box flipped first.
    bool ReleaseLabelled(GadgetKind kind, const std::string& label, bool flip, std::string* error);

    mutable std::mutex lock_;
    std::vector<Window*> windows_;
    std::vector<RequesterWindow*> requesters_;   // in opening order
    Window* active_ = nullptr;
    RequesterWindow* activeModeless_ = nullptr;   // the active one, over active_
    int pointerX_ = 0;
    int pointerY_ = 0;
    uint16_t heldButtons_ = 0;
    uint16_t pressQualifier_ = 0;
    int beeps_ = 0;
    int screenLocks_ = 0;
    std::atomic<uint64_t> clockMicros_;
    TextAttr screenAttr_;
    TextFont screenFont_;
    Screen screen_;
    std::function<void()> loop_;
    bool ended_ = true;
    std::condition_variable endedChanged_;
};
