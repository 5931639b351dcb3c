#pragma once
// The busy state of a text window: while a requester, a long write or a
// script's LOCK runs, the window takes no input but moving, sizing, the
// close gadget (refused with a beep) and the scrollers. It nests; Busy in
// TextState is set while BusyDepth is above 0.
#include <cstdint>

struct TextRecord;
struct Window;

// The classes a window in the busy state still reports: close, gadget down,
// new size.
constexpr uint32_t LockedIDCMP = 0x00000222;

// Replies, unread, to every message queued at the window's port.
void DrainWindowPort(Window* window);

// Enters one level of the busy state: at the first level menus go, the
// event set shrinks to LockedIDCMP, queued input is thrown away and Busy is
// set. Then BusyDepth + 1 and the busy pointer. 1, or -1 with nothing
// changed when there is no record or no window (a hidden text).
int LockTextWindow(TextRecord* record);
// Leaves one level; at 0 the menus, the full event set and the pointer come
// back and Busy is cleared. More unlocks than locks do nothing.
void UnlockTextWindow(TextRecord* record);
