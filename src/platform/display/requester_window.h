#pragma once
// Requester windows: small modal windows built from a layout of gadgets.
//
// A task describes the window as a tree of RequesterGadget (groups, label
// lines, buttons, a string or integer field, check boxes, a list, or a file
// or font chooser), opens it with OpenRequesterWindow, and waits on its
// UserPort. The display side posts what the user does there as
// IntuiMessages:
// - IDCMP_GADGETUP, Code = the gadget's id: a button pressed, a button's
//   underscored letter typed while no field has the keyboard, Return or Tab
//   that leaves a field (GadgetEnd tells which), a check box flipped (also
//   by its letter), a list row clicked, a file or font accepted (id 1),
//   another tab or chooser entry chosen; the letter of a labelled field
//   gives it the keyboard and posts nothing;
// - IDCMP_RAWKEY: any other key, down and up, with its raw code;
// - IDCMP_MOUSEBUTTONS: the right or middle button;
// - IDCMP_CLOSEWINDOW: the close gadget, or a file or font dialog cancelled.
// The values the user edits (field text, number, check state, selected row,
// chosen drawer, file and font) live in the gadget records; both sides reach
// them only through the functions below, under the window's lock.
//
// A group (Vertical, Horizontal) with a Label is framed under that label.
// A String or Integer field with a Label shows it beside the field; its
// '_' letter gives the field the keyboard.
//
// The window is modal to `RefWindow` only (the text window it belongs to):
// other windows keep taking input. A `Modeless` window belongs to no window:
// it stands beside the others, takes input only while the user has made it
// the active one, and Esc in one of its fields only leaves the field
// (GadgetEnd 27), where in a requester Esc is the requester's key.
#include "platform/display/intuition.h"

#include <cstdint>
#include <mutex>
#include <string>
#include <vector>

enum class GadgetKind : uint8_t {
    Vertical,     // children one under the other
    Horizontal,   // children side by side
    TextBox,      // a framed box of centered label lines (Rows)
    Button,       // Label, with '_' before its key letter
    String,       // Text, at most MaxChars - 1 characters
    Integer,      // Number
    Check,        // Label; Number 0 off, 1 on
    List,         // Rows; Number the selected row from 0, -1 none
    File,         // Drawer and Text (the name); Save: the dialog saves
    Font,         // Text the font's name, Number its size
    Tabs,         // Rows the tabs' labels, Children one page each, Number the page shown
    Chooser,      // Label; Rows its entries, Number the one chosen
};

struct RequesterGadget {
    GadgetKind Kind = GadgetKind::Vertical;
    uint16_t Id = 0;
    std::string Label;
    std::string Text;
    std::string Drawer;
    int32_t Number = 0;
    int MaxChars = 0;
    bool Save = false;
    std::vector<std::string> Rows;
    std::vector<RequesterGadget> Children;
    // A field or chooser shown but not taking input.
    bool Disabled = false;
};

// Where the window opens.
enum class RequesterPlace : uint8_t { ScreenCenter, FollowMouse, ScreenTopLeft, WindowCenter };

class RequesterPeer {
public:
    virtual ~RequesterPeer() = default;
};

struct RequesterWindow {
    std::string Title;
    RequesterGadget Layout;
    Window* RefWindow = nullptr;   // the window it is modal to, or null
    RequesterPlace Place = RequesterPlace::ScreenCenter;
    bool Widens = false;           // a size gadget that changes the width only
    bool Modeless = false;         // a window of its own, RefWindow null (see the top)
    // The outer box asked for (a width of 0: the backend's choice); a
    // backend that lets the user move the window writes the last box back
    // before CloseRequesterWindow returns.
    int Left = 0, Top = 0, Width = 0, Height = 0;
    int MinVisibleRows = 0;        // of a list
    int WidthChars = 0;            // at least this many characters wide, 0 any
    MsgPort* UserPort = nullptr;   // created by OpenRequesterWindow, signals the opener
    uint16_t ActiveGadget = 0;     // the field that has the keyboard, 0 none
    RequesterPeer* Peer = nullptr; // the backend's
    mutable std::mutex Lock;       // guards the values of the gadgets
};

// Opens the window for the calling task: sets its UserPort and shows it.
// False (nothing to close) when there is no display or it can't be shown.
bool OpenRequesterWindow(RequesterWindow* requester);
// Closes it; what is still queued at its port is replied and the port goes.
void CloseRequesterWindow(RequesterWindow* requester);

// The values of a gadget by id; a missing id reads as empty or 0.
std::string RequesterText(const RequesterWindow* requester, uint16_t id);
int32_t RequesterNumber(const RequesterWindow* requester, uint16_t id);
std::string RequesterDrawer(const RequesterWindow* requester, uint16_t id);
// Task side: changes a value and shows it.
void SetRequesterText(RequesterWindow* requester, uint16_t id, const std::string& text);
void SetRequesterNumber(RequesterWindow* requester, uint16_t id, int32_t number);
// Lets a field or chooser take input again, or stops it.
void SetRequesterDisabled(RequesterWindow* requester, uint16_t id, bool disabled);
// Gives the keyboard to a field (0: to none).
void ActivateRequesterGadget(RequesterWindow* requester, uint16_t id);
// Brings the window to the front and makes it the active one.
void RequesterToFront(RequesterWindow* requester);

// Display side: posts an event to the window's port (see the top). False
// when the window is not open.
bool PostRequesterMessage(RequesterWindow* requester, const IntuiMessage& event);

// The gadget of `id` in a tree, or null. Callers hold the window's lock.
RequesterGadget* FindRequesterGadget(RequesterGadget& root, uint16_t id);
const RequesterGadget* FindRequesterGadget(const RequesterGadget& root, uint16_t id);
// The letter after the '_' of a label, lower case, or 0; and the label
// without its '_'.
char ShortcutLetter(const std::string& label);
std::string PlainLabel(const std::string& label);
