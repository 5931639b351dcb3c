#pragma once
// The desktop backend's part of one open window: its widget, its picture,
// and the two directions between them and the program.
//
// - Input (display thread): the widget's reports become IntuiMessages at
//   the window's UserPort, or drop messages at its AppWindow port. Holding
//   a scroller sets GFLG_SELECTED on its gadget (and KNOBHIT for the knob)
//   before GADGETDOWN is posted; a knob drag posts MOUSEMOVE with the
//   gadget; the release clears the flags and posts GADGETUP.
// - Drawing (owning task): the rastport's calls paint the picture under its
//   lock, cut to the text area, and ask the display thread for a repaint
//   (at most one is pending, shown about 10 ms after the first change).
//
// A window without close or size gadget and without gadgets is a title
// window: it shows its title inside and is made at least tall enough for it.
// A window with WFLG_NEWLOOKMENUS has a menu bar from its opening; its top
// border is the bar. A pick of an item sets the item's check mark in the
// strip's record, then posts IDCMP_MENUPICK; Help on a highlighted item
// posts IDCMP_MENUHELP.
//
// Made and destroyed on the display thread. After Detach() it posts nothing
// and never touches the Window record again; the object itself lives until
// its widget is gone.
#include "platform/display/backend.h"
#include "platform/display/qt/menu_bar.h"
#include "platform/display/qt/window_events.h"
#include "platform/display/qt/window_raster.h"
#include "platform/display/qt/window_widget.h"

#include <QImage>
#include <QMargins>
#include <QPointer>

#include <atomic>
#include <memory>
#include <mutex>

struct QtTextFont;

class QtWindow : public WindowPeer, public WindowEvents, public RastSurface {
public:
    // Builds and shows the widget for `window`, whose record is filled in
    // (box, flags, gadgets, title); sets the borders, Peer and the
    // rastport's surface. `defaultFont` draws for a rastport without font;
    // `origin` is the desktop position of the screen's top-left corner.
    QtWindow(Window* window, QtTextFont* defaultFont, QPoint origin);

    WindowWidget* Widget() const { return widget_; }
    // Stops all traffic with the record and lets the widget go.
    void Detach();

    void SetTitle(const QString& title);
    // The box in screen coordinates; a resize is announced by IDCMP_NEWSIZE.
    void SetBox(int left, int top, int width, int height);
    void SetBusy(bool busy, bool delay);
    void Flash();
    // The strip that picks now go to (null: none), set by its owner's task:
    // from the return on, the window no longer touches the strip before.
    // The number of the change, for ShowMenus.
    uint64_t SetStrip(const Menu* strip);
    // Display thread: shows the picture of the strip of change
    // `generation`; until the newest change is shown, picks are ignored.
    void ShowMenus(uint64_t generation, const MenuStripPicture& picture);
    // The scroller gadgets of a window's list and their values: read on
    // the thread that may read the list, shown on the display thread.
    struct Scroller {
        Gadget* knob = nullptr;
        Gadget* sub = nullptr;   // up or left arrow
        Gadget* add = nullptr;   // down or right arrow
        uint16_t pot = 0;
        uint16_t body = MAXBODY;
    };
    struct Scrollers {
        Scroller vertical;
        Scroller horizontal;
    };
    static Scrollers ScanGadgets(const Window* window);
    void ShowGadgets(const Scrollers& scrollers);

    // WindowEvents.
    void KeyEvent(uint16_t code, uint16_t qualifier, const KeyChars& keys) override;
    void MouseEvent(uint32_t cls, uint16_t code, uint16_t qualifier, QPoint position) override;
    void ScrollerEvent(bool vertical, ScrollerPart part, ScrollerAction action, uint16_t pot,
                       uint16_t qualifier, QPoint position) override;
    void Resized() override;
    void Moved() override;
    void Activated(bool active) override;
    void Tick() override;
    void CloseRequested() override;
    void FilesDropped(const QStringList& paths, QPoint position) override;

    // RastSurface, called by the owning task.
    void DrawText(const RastPort& rp, int x, int y, const char* text, int count) override;
    void FillRect(const RastPort& rp, uint8_t pen, int xMin, int yMin, int xMax, int yMax) override;
    void ScrollRect(const RastPort& rp, int dx, int dy, int xMin, int yMin, int xMax,
                    int yMax) override;

    // A copy of what the window shows, scroll bars included. Display thread.
    QImage Snapshot() const;

private:
    void Post(uint32_t cls, uint16_t code, uint16_t qualifier, QPoint position,
              void* address = nullptr, const KeyChars* keys = nullptr);
    QPoint PointerInWindow() const;
    QRgb PenColour(uint8_t pen) const;
    // The text area in window coordinates.
    QRect AreaRect() const;
    void RequestRepaint();
    void MenuPicked(MenuNumber number);
    void MenuHelp(MenuNumber number);

    Window* window_;
    QMargins borders_;
    QPoint origin_;
    ColorMap* colours_;
    QtTextFont* defaultFont_;
    WindowRaster raster_;
    QPointer<WindowWidget> widget_;
    bool attached_ = true;
    // A title window (an iconified text): no gadgets, its title inside.
    bool titleOnly_ = false;
    bool busy_ = false;
    std::unique_ptr<WindowMenuBar> menus_;
    std::mutex stripLock_;
    const Menu* strip_ = nullptr;      // under stripLock_
    uint64_t stripGeneration_ = 0;     // under stripLock_
    uint64_t shownGeneration_ = 0;     // display thread
    Scrollers gadgets_;
    std::atomic<bool> repaintPending_{false};
};
