#pragma once
// The frame kept for toolbars: the list of toolbar windows of the main
// process, its closing, and the answers of the commands that would load a
// toolbar. Loading one isn't part of this version: nothing adds a node,
// so the list stays empty, and both user commands that would load a
// toolbar say "Not yet implemented". Settings.ToolbarName is kept through
// the preferences file untouched.
#include "platform/exec/lists.h"

#include <cstdint>

struct CommandMessage;
struct MemPool;
struct TextRecord;
struct Window;

constexpr int ToolbarNameSize = 64;

struct ToolbarNode {
    Node Links;
    MemPool* Pool = nullptr;    // the toolbar's memory, or null
    ::Window* Window = nullptr; // its window, or null
    int32_t UseCount = 0;       // a node in use isn't closed
    char Name[ToolbarNameSize] = {};
};

// Of the main process; NewList before use (InitToolbars).
extern List ToolbarWindowList;

void InitToolbars();

// Removes every node, closing its window and deleting its pool. A node
// still in use is left alone, and ends the closing. Main process, when the
// screen is given up and at the end.
void CloseToolbars();

// CMD_RAISE_TOOLBARS: every toolbar window to the front.
void HandleRaiseToolbars(CommandMessage* message, int16_t* code);

// The name of the first toolbar, or "". Read by a text for TOOLBAR("").
const char* FirstToolbarName();

// "Load toolbar" in the menu and the toolbar gadget of the preferences
// window: the requester with the line "Not yet implemented".
void LoadToolbarCommand(TextRecord* record);
