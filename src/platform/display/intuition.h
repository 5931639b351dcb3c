#pragma once
// Screens, windows, gadgets and window messages: the windowing layer the
// editor sees, under the platform's names.
//
// Threading. Windows are opened, changed and closed by tasks; the display
// side (the backend's own thread, or the test thread of the headless
// backend) turns input into IntuiMessages at each window's UserPort. Calls
// marked "synchronous" have taken effect when they return; "asynchronous"
// ones are posted to the display side and take effect soon after (the
// window's record shows the change then, and a size change is announced by
// IDCMP_NEWSIZE). The display side never waits for a task.
//
// Every operation does nothing, or gives null/false, when no backend is
// installed (see backend.h) or when given a null window.
#include "platform/display/graphics.h"
#include "platform/display/input_codes.h"
#include "platform/display/shared_field.h"
#include "platform/exec/ports.h"

#include <cstdint>

struct Window;
struct Menu;        // a menu strip, built from NewMenu tables
struct Requester;   // never used; kept for the platform's signatures
class WindowPeer;   // the backend's part of a window (backend.h)

// The public screen: the desktop, or the headless backend's 640 x 200.
struct Screen {
    int16_t LeftEdge = 0;
    int16_t TopEdge = 0;
    int16_t Width = 0;
    int16_t Height = 0;
    int16_t BarHeight = 0;
    int16_t WBorTop = 0, WBorLeft = 0, WBorRight = 0, WBorBottom = 0;
    const char* Title = nullptr;
    TextAttr* Font = nullptr;               // the screen's font
    struct RastPort RastPort;               // measures only, in the screen font
    struct ColorMap* ColorMap = nullptr;    // pens by ObtainBestPen
    // Where windows of text are sized by their cells (the desktop): the
    // columns and rows of a text window the program places by default,
    // whose borders are WBorLeft to WBorBottom. 0: the program's own box.
    int16_t TextColumns = 0;
    int16_t TextRows = 0;
};

struct DrawInfo {
    TextFont* dri_Font = nullptr;   // the screen's font, open
    struct Screen* dri_Screen = nullptr;
};

struct Image {
    int16_t LeftEdge = 0, TopEdge = 0, Width = 0, Height = 0, Depth = 0;
    Image* NextImage = nullptr;
};

// Kinds of system image (NewSysImage).
constexpr uint32_t DEPTHIMAGE = 0x00;
constexpr uint32_t SIZEIMAGE = 0x02;
constexpr uint32_t CLOSEIMAGE = 0x03;
constexpr uint32_t LEFTIMAGE = 0x0A;
constexpr uint32_t UPIMAGE = 0x0B;
constexpr uint32_t RIGHTIMAGE = 0x0C;
constexpr uint32_t DOWNIMAGE = 0x0D;

// Proportional gadget state. Pots run from 0 to MAXPOT; a body is the
// visible share, MAXBODY for all. The display side writes the pots and
// KNOBHIT while the user drags; the task writes them by NewModifyProp.
struct PropInfo {
    Shared<uint16_t> Flags;
    Shared<uint16_t> HorizPot;
    Shared<uint16_t> VertPot;
    Shared<uint16_t> HorizBody;
    Shared<uint16_t> VertBody;
    uint16_t CWidth = 0, CHeight = 0, HPotRes = 0, VPotRes = 0, LeftBorder = 0, TopBorder = 0;
};
constexpr uint16_t AUTOKNOB = 0x0001;
constexpr uint16_t FREEHORIZ = 0x0002;
constexpr uint16_t FREEVERT = 0x0004;
constexpr uint16_t PROPBORDERLESS = 0x0008;
constexpr uint16_t PROPNEWLOOK = 0x0010;
constexpr uint16_t KNOBHIT = 0x0100;   // set while the knob itself is held
constexpr uint16_t MAXPOT = 0xFFFF;
constexpr uint16_t MAXBODY = 0xFFFF;

// A gadget of a window's border. The display side sets GFLG_SELECTED while
// the user holds the gadget and clears it on release; everything else is
// the owner's. Negative edges with GFLG_REL* count from the right or
// bottom edge, as on the platform.
struct Gadget {
    Gadget* NextGadget = nullptr;
    int16_t LeftEdge = 0, TopEdge = 0, Width = 0, Height = 0;
    Shared<uint16_t> Flags;
    uint16_t Activation = 0;
    uint16_t GadgetType = 0;
    void* GadgetRender = nullptr;
    void* SelectRender = nullptr;
    void* GadgetText = nullptr;
    int32_t MutualExclude = 0;
    void* SpecialInfo = nullptr;   // PropInfo* of a GTYP_PROPGADGET
    uint16_t GadgetID = 0;
    void* UserData = nullptr;
};
constexpr uint16_t GFLG_GADGHCOMP = 0x0000;
constexpr uint16_t GFLG_GADGHBOX = 0x0001;
constexpr uint16_t GFLG_GADGHIMAGE = 0x0002;
constexpr uint16_t GFLG_GADGHNONE = 0x0003;
constexpr uint16_t GFLG_GADGIMAGE = 0x0004;
constexpr uint16_t GFLG_RELBOTTOM = 0x0008;
constexpr uint16_t GFLG_RELRIGHT = 0x0010;
constexpr uint16_t GFLG_RELWIDTH = 0x0020;
constexpr uint16_t GFLG_RELHEIGHT = 0x0040;
constexpr uint16_t GFLG_SELECTED = 0x0080;
constexpr uint16_t GFLG_DISABLED = 0x0100;
constexpr uint16_t GACT_RELVERIFY = 0x0001;
constexpr uint16_t GACT_IMMEDIATE = 0x0002;
constexpr uint16_t GACT_FOLLOWMOUSE = 0x0008;
constexpr uint16_t GACT_RIGHTBORDER = 0x0010;
constexpr uint16_t GACT_LEFTBORDER = 0x0020;
constexpr uint16_t GACT_TOPBORDER = 0x0040;
constexpr uint16_t GACT_BOTTOMBORDER = 0x0080;
constexpr uint16_t GTYP_BOOLGADGET = 0x0001;
constexpr uint16_t GTYP_PROPGADGET = 0x0003;
constexpr uint16_t GTYP_STRGADGET = 0x0004;

// How backends show a text window's border gadgets: a GTYP_PROPGADGET whose
// PropInfo has FREEVERT is the vertical scroll bar, FREEHORIZ the horizontal
// one; the arrow buttons are the GTYP_BOOLGADGETs of these ids. Other
// gadgets are kept in the list but not shown.
constexpr uint16_t GADGETID_ARROWLEFT = 0x04;
constexpr uint16_t GADGETID_ARROWRIGHT = 0x08;
constexpr uint16_t GADGETID_VERTSCROLLER = 0x10;
constexpr uint16_t GADGETID_ARROWDOWN = 0x20;
constexpr uint16_t GADGETID_ARROWUP = 0x40;
constexpr uint16_t GADGETID_HORIZSCROLLER = 0x80;

// Window flags (NewWindow::Flags, Window::Flags).
constexpr uint32_t WFLG_SIZEGADGET = 0x00000001;
constexpr uint32_t WFLG_DRAGBAR = 0x00000002;
constexpr uint32_t WFLG_DEPTHGADGET = 0x00000004;
constexpr uint32_t WFLG_CLOSEGADGET = 0x00000008;
constexpr uint32_t WFLG_SIZEBRIGHT = 0x00000010;
constexpr uint32_t WFLG_SIZEBBOTTOM = 0x00000020;
constexpr uint32_t WFLG_SMART_REFRESH = 0x00000000;
constexpr uint32_t WFLG_REPORTMOUSE = 0x00000200;
constexpr uint32_t WFLG_BORDERLESS = 0x00000800;
constexpr uint32_t WFLG_ACTIVATE = 0x00001000;
constexpr uint32_t WFLG_RMBTRAP = 0x00010000;
constexpr uint32_t WFLG_NOCAREREFRESH = 0x00020000;
constexpr uint32_t WFLG_NEWLOOKMENUS = 0x00200000;

// NewWindow::Type.
constexpr uint16_t WBENCHSCREEN = 0x0001;
constexpr uint16_t PUBLICSCREEN = 0x0002;
constexpr uint16_t CUSTOMSCREEN = 0x000F;

// What OpenWindow opens. A limit of 0 means none (a maximum of 0: the
// screen's size). A window with neither WFLG_CLOSEGADGET nor
// WFLG_SIZEGADGET and no gadgets is a title window: only its title shows,
// in its drag bar (an iconified text).
struct NewWindow {
    int16_t LeftEdge = 0, TopEdge = 0, Width = 0, Height = 0;
    uint8_t DetailPen = 0, BlockPen = 0;
    uint32_t IDCMPFlags = 0;
    uint32_t Flags = 0;
    Gadget* FirstGadget = nullptr;
    const char* Title = nullptr;
    struct Screen* Screen = nullptr;   // null: the default public screen
    int16_t MinWidth = 0, MinHeight = 0, MaxWidth = 0, MaxHeight = 0;
    uint16_t Type = PUBLICSCREEN;
    const char* ScreenTitle = nullptr;   // shown while the window is active
    bool MenuHelp = false;               // Help on a menu item posts IDCMP_MENUHELP
};

// An open window. The box is written by the display side only; borders are
// fixed from opening to closing. The text area is the box less the borders.
struct Window {
    Shared<int16_t> LeftEdge;
    Shared<int16_t> TopEdge;
    Shared<int16_t> Width;
    Shared<int16_t> Height;
    int16_t MinWidth = 0, MinHeight = 0, MaxWidth = 0, MaxHeight = 0;
    int16_t BorderLeft = 0, BorderTop = 0, BorderRight = 0, BorderBottom = 0;
    uint32_t Flags = 0;
    // Classes posted to UserPort; others are dropped at the door.
    Shared<uint32_t> IDCMPFlags;
    // Created at opening in the opening task (so it signals that task) and
    // deleted by CloseWindow. Messages here are replied by the receiver.
    MsgPort* UserPort = nullptr;
    Gadget* FirstGadget = nullptr;
    Menu* MenuStrip = nullptr;
    const char* Title = nullptr;         // as last given; the backend keeps a copy
    const char* ScreenTitle = nullptr;
    struct Screen* WScreen = nullptr;
    RastPort* RPort = nullptr;           // points at the window's own rastport
    void* UserData = nullptr;            // the owner's
    WindowPeer* Peer = nullptr;          // the backend's
    struct RastPort WindowPort;
};

// The characters a key gives, from the keyboard layout, in ISO 8859-1. Layer
// index: bit 0 Shift, bit 1 Alt. Each layer is zero-terminated; empty means
// no character. Ctrl is applied by KeyToText, not stored.
struct KeyChars {
    char Layer[4][8] = {};
};

// A window message. Replied by the receiver with ReplyMsg; the reply port
// belongs to the display side, which frees replied messages itself.
// Mouse positions are pixels from the window's top-left corner.
struct IntuiMessage {
    Message ExecMessage;
    uint32_t Class = 0;
    uint16_t Code = 0;
    uint16_t Qualifier = 0;
    void* IAddress = nullptr;   // the gadget of GADGETDOWN/UP and of a knob drag
    int16_t MouseX = 0;
    int16_t MouseY = 0;
    uint32_t Seconds = 0;
    uint32_t Micros = 0;
    Window* IDCMPWindow = nullptr;
    KeyChars Keys;              // IDCMP_RAWKEY: the key's characters
    // IDCMP_GADGETUP of a requester's field: the key that left it, 13
    // (Return or Enter), 9 (Tab) or 27 (Esc); 0 for any other gadget-up.
    uint16_t GadgetEnd = 0;
};

// Screens. Synchronous. A name of null is the default public screen;
// unknown names give null. Each successful lock is given back once.
Screen* LockPubScreen(const char* name);
void UnlockPubScreen(const char* name, Screen* screen);
DrawInfo* GetScreenDrawInfo(Screen* screen);
void FreeScreenDrawInfo(Screen* screen, DrawInfo* drawInfo);
// A system image's measures for the screen (`height` sizes DEPTHIMAGE to a
// title bar; 0 for the default). Freed by DisposeObject.
Image* NewSysImage(DrawInfo* drawInfo, uint32_t which, int16_t height);
void DisposeObject(Image* image);   // null is allowed

// Windows. Opening and closing are synchronous. The box is clamped to the
// limits and to the screen. Null on failure. CloseWindow replies (frees)
// what is still queued at UserPort and deletes it.
Window* OpenWindow(const NewWindow* newWindow);
void CloseWindow(Window* window);
// Replaces the event mask; classes outside it are no longer posted. Messages
// already queued stay. Immediate.
bool ModifyIDCMP(Window* window, uint32_t flags);
// Null leaves a title empty, (const char*)-1 leaves it as it is. The strings
// are copied before the call returns. Asynchronous. Window titles, here and
// in NewWindow, are in UTF-8, the desktop's encoding, because the file
// names they show are; every other text of the display is ISO 8859-1.
void SetWindowTitles(Window* window, const char* windowTitle, const char* screenTitle);
// Asynchronous.
void WindowToFront(Window* window);
void WindowToBack(Window* window);
void ActivateWindow(Window* window);   // IDCMP_ACTIVEWINDOW follows
void ChangeWindowBox(Window* window, int left, int top, int width, int height);
void MoveWindow(Window* window, int dx, int dy);
// The busy pointer over the window (after a short delay with `delay`).
void SetWindowPointer(Window* window, bool busy, bool delay);
void ClearPointer(Window* window);
// Beeps and flashes; null means the front screen.
void DisplayBeep(Screen* screen);

// Gadgets. AddGList links `count` gadgets (-1: all) of a list at `position`
// (-1: the end); RefreshGList shows changed ones. Both asynchronous.
int AddGList(Window* window, Gadget* gadget, int position, int count, Requester* requester);
void RefreshGList(Gadget* gadget, Window* window, Requester* requester, int count);
// Sets a proportional gadget's flags, pots and bodies and shows them.
void NewModifyProp(Gadget* gadget, Window* window, Requester* requester, uint16_t flags,
                   uint16_t horizPot, uint16_t vertPot, uint16_t horizBody, uint16_t vertBody,
                   int numGadgets);

// Menus. The strip belongs to its owner; the window only shows it.
bool SetMenuStrip(Window* window, Menu* menu);
void ClearMenuStrip(Window* window);

// Time of the backend's clock (the headless clock moves only when told).
void CurrentTime(uint32_t* seconds, uint32_t* micros);
// Whether the second time lies within the double-click interval after the
// first.
bool DoubleClick(uint32_t seconds1, uint32_t micros1, uint32_t seconds2, uint32_t micros2);
