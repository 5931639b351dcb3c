#pragma once
// What the main process owns for all texts. Everything here is written by
// the main process alone (in DispatchCommand and at start and end), except:
// TextCount, which StartTextProcess also raises from a text process, and
// the TextList links, which other processes read under TextListLock held
// shared. Text processes read Screen without a lock (requesters of a caller
// without a record).
#include "frame/protocol/text_list.h"
#include "platform/dos/paths.h"
#include "platform/exec/semaphores.h"

#include <atomic>
#include <cstdint>

struct MsgPort;
struct Screen;
struct TextRecord;

constexpr int BookmarkCount = 13;
constexpr int ReturnBookmarkSlot = 12; // the last edit position, for Ctrl+Esc
constexpr int FindTextSize = 50;       // SearchText and ReplaceText, 49 characters
// The current directory and "NoName" joined: room for any directory, as a
// cut one would name a different place.
constexpr int DefaultFileNameSize = JoinedPathSize;
constexpr int ScriptPathSize = 257;   // ScriptPath, 256 characters

struct Bookmark {
    int32_t Line = 0;
    int32_t Column = 0;
    int32_t Slot = 0;            // 0 to 11 the user's, 12 the return bookmark
    TextRecord* Owner = nullptr; // null: a free slot
};

// The argument of the key map codes; lives in the sender's frame for the
// time of the call.
struct KeyRequest {
    uint8_t Key = 0;        // 1 to 12 for F1 to F12, else a character
    char* Macro = nullptr;  // the macro text of CMD_KEY_SET
    uint32_t Qualifier = 0; // QualifierIndex 0 to 7
    // CMD_KEY_GET for a key being pressed: the stored text is upper-cased
    // outside strings before it is copied, so that it is done once.
    bool Pressed = false;
    // Written by CMD_KEY_GET: some text holds the key map editing lock.
    bool Locked = false;
};

struct AppGlobals {
    MsgPort* MainPort = nullptr;
    TextList Texts; // in opening order, under TextListLock
    // Started text processes that have not yet reported their end. Above 0
    // while any text process can still send to MainPort.
    std::atomic<long> TextCount{0};
    TextRecord* ActiveText = nullptr;
    TextRecord* KeysOwner = nullptr; // holder of the key map editing lock
    int MenusLocked = 0;             // 1 while a text edits the user menus
    Bookmark Bookmarks[BookmarkCount];
    char SearchText[FindTextSize] = {};
    char ReplaceText[FindTextSize] = {};
    ::Screen* Screen = nullptr; // the locked public screen, or null
    long ScreenUseCount = 0;    // text and title windows open on Screen
    char DefaultFileName[DefaultFileNameSize] = {};
    char PubScreenName[256] = {}; // screen asked for; empty: the default one
    int32_t IconNextLeft = 0;     // where the next iconified title window goes
    int32_t IconNextTop = 1;

    SignalSemaphore TextListLock;
    SignalSemaphore MenuTableLock;
    SignalSemaphore ScriptPathLock;
    char ScriptPath[ScriptPathSize] = "REXX:"; // directory of scripts, under ScriptPathLock
    SignalSemaphore PrefsPathLock;
    SignalSemaphore FunctionTableLock;
};

extern AppGlobals Globals;

// The state of a main process that has not started anything yet: no texts,
// no bookmarks, no locks held, no screen. The semaphores are left alone.
void ResetAppGlobals();
