#pragma once
// The handlers of the codes the main process serves, one per row of the
// code table, all run by DispatchCommand in the main process. A handler
// writes its result into message->Argument. One that replies to or frees the
// message itself first takes CMD_REPLY or CMD_FREE out of `code`, the
// dispatcher's copy, and does not touch the message after that.
#include <cstdint>

struct CommandMessage;

using MainHandler = void (*)(CommandMessage* message, int16_t* code);

// Texts: starting, ending, the list, activation, selection, name search.
void HandleNewText(CommandMessage* message, int16_t* code);
void HandleCloseText(CommandMessage* message, int16_t* code);
void HandleTextEnded(CommandMessage* message, int16_t* code);
void HandleQuitAll(CommandMessage* message, int16_t* code);
void HandleTextActive(CommandMessage* message, int16_t* code);
void HandleAddText(CommandMessage* message, int16_t* code);
void HandleRemoveText(CommandMessage* message, int16_t* code);
void HandleListTexts(CommandMessage* message, int16_t* code);
void HandleSelectText(CommandMessage* message, int16_t* code);
void HandleFindOther(CommandMessage* message, int16_t* code);
void HandleFindAny(CommandMessage* message, int16_t* code);

// The screen and its use count.
void HandleGetScreen(CommandMessage* message, int16_t* code);
void HandleScreenUse(CommandMessage* message, int16_t* code);
void HandleScreenRelease(CommandMessage* message, int16_t* code);

// Bookmarks.
void HandleGotoBookmark(CommandMessage* message, int16_t* code);
void HandleSetBookmark(CommandMessage* message, int16_t* code);
void HandleShiftBookmarks(CommandMessage* message, int16_t* code);
void HandleDropLineBookmarks(CommandMessage* message, int16_t* code);
void HandleDropBookmarks(CommandMessage* message, int16_t* code);

// The editing locks of the key map and the user menus.
void HandleKeysLock(CommandMessage* message, int16_t* code);
void HandleKeysUnlock(CommandMessage* message, int16_t* code);
void HandleMenusLock(CommandMessage* message, int16_t* code);
void HandleMenusUnlock(CommandMessage* message, int16_t* code);
void HandleMenusChanged(CommandMessage* message, int16_t* code);

// The find and replace strings.
void HandleGetFind(CommandMessage* message, int16_t* code);
void HandleGetReplace(CommandMessage* message, int16_t* code);
void HandleSetFind(CommandMessage* message, int16_t* code);
void HandleSetReplace(CommandMessage* message, int16_t* code);

// The search window.
void HandleOpenSearch(CommandMessage* message, int16_t* code);
void HandleCloseSearch(CommandMessage* message, int16_t* code);
void HandleCaseChanged(CommandMessage* message, int16_t* code);
