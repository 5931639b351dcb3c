#pragma once
// Bookkeeping shared by the window operations and the display side: which
// windows may receive messages, their AppWindows, and the port where
// receivers reply posted messages. Internal to the display library.
#include "platform/display/intuition.h"

// The reply port lives from installing a backend to uninstalling it, owned
// by the installing thread's task (which must outlive it).
void OpenReplyPort();
void CloseReplyPort();

// A window takes messages from RegisterWindow until UnregisterWindow, which
// also detaches its AppWindows; no post is under way once it returns.
void RegisterWindow(Window* window);
void UnregisterWindow(Window* window);

// Frees a message that the display side posted (replied, or never taken).
void FreePostedMessage(Message* message);

// Posts a copy of `event` to a port that is not a window's (a requester
// window's), stamped with the backend's clock when it has no time. The
// caller makes sure the port lives.
bool PostIntuiMessage(MsgPort* port, const IntuiMessage& event);
