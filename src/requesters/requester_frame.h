#pragma once
// The frame every requester runs in, and the one event loop of them all.
//
// A requester runs in the process that asks: the text's process with its
// record, or the main process with a null record. It blocks that process
// only; the text behind it stays alive (resized, scrolled; its close gadget
// beeps) because the loop serves the text window too.
struct Gadget;
struct RequesterWindow;
struct TextRecord;

// What RunRequester gives back, besides the id of a gadget released.
constexpr int RequestClosed = -1;        // close gadget, Esc, right or middle button
constexpr int RequestReturn = 1;         // Return or Enter (as gadget 1)
constexpr int RequestKey = 8;            // another key, when the caller asked for keys
constexpr int RequestMenuPick = 0x10000; // with the menu code in the low 16 bits

// The frame's first half: the text window goes busy, the screen must be
// there (without one `reportNoScreen` says "Error opening screen"), the
// search window closes, and the window opens placed as the settings say,
// titled with the text's name or "Tavrel" unless it has a title already. False, with the text unlocked
// again, when it could not open.
bool OpenRequesterFrame(TextRecord* record, RequesterWindow* requester, bool reportNoScreen);
// The second half: closes the window and unlocks the text window.
void CloseRequesterFrame(TextRecord* record, RequesterWindow* requester);

// The event loop: waits on the requester and the text window behind it
// until an event decides (see the constants above). With `rawKey`, a key
// press other than Return, Enter, Esc and Help ends the loop with
// RequestKey and its raw code in `*rawKey`; without, such keys are ignored.
// The Help key shows the help of the running command or of the function
// selected in a list.
int RunRequester(TextRecord* record, RequesterWindow* requester, int* rawKey);

// How the Help key shows a help node (a command's label or a function's
// name), installed by the help viewer at start; without one Help shows
// nothing.
using HelpNodeShow = void (*)(TextRecord* record, const char* node);
void SetHelpNodeShow(HelpNodeShow show);

// How a scroller of the text window is worked while a requester is up: the
// text's own scroller handling, which stands above the requesters and is
// installed by the main process at start.
using ScrollerHandler = void (*)(TextRecord* record, Gadget* gadget);
void SetScrollerHandler(ScrollerHandler handler);
// Works a scroller of the text window through that handler; nothing
// without one.
void WorkTextScroller(TextRecord* record, Gadget* gadget);

// How the text is laid out anew for a new window size or font: the text's
// own viewport handling, which stands above the requesters and is installed
// by the main process at start.
using RelayoutHandler = void (*)(TextRecord* record);
void SetRelayoutHandler(RelayoutHandler handler);
// Clears the text area and lays the text out anew through that handler.
void RelayoutText(TextRecord* record);

// Serves what is queued at the text window while a requester is up: a new
// size lays out and redraws, the scrollers scroll, the close gadget beeps.
void ServeTextWindow(TextRecord* record);
