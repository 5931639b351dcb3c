// The 13 bookmarks live in the main process, so that a bookmark can lead
// from one text to another. A slot's Owner is the text it belongs to; a
// null Owner is a free slot.
#include "frame/process/main_handlers.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "text/record/line_access.h"

void HandleGotoBookmark(CommandMessage* message, int16_t* code)
{
    intptr_t slot = message->Argument;
    message->Argument = 0;
    if (slot < 0 || slot >= BookmarkCount)
        return;
    Bookmark* bookmark = &Globals.Bookmarks[slot];
    // A text that vanished without dropping its bookmarks is no longer in
    // the list; the walk is the test.
    TextRecord* owner = bookmark->Owner;
    if (!owner || !ContainsText(&Globals.Texts, owner))
        return;
    // The sender may be the owner itself: it must have its answer and be
    // back in its loop before it can read the order to go there.
    message->Argument = 1;
    ReplyMsg(&message->cm_Message);
    *code = static_cast<int16_t>(*code & ~CMD_REPLY);
    // The slot may change as soon as main serves the next message: the
    // owner gets a copy of the position.
    SendPositionToText(owner, CMD_GOTO_BOOKMARK, bookmark->Line, bookmark->Column);
}

void HandleSetBookmark(CommandMessage* message, int16_t*)
{
    const auto* bookmark = reinterpret_cast<const Bookmark*>(message->Argument);
    if (bookmark && bookmark->Slot >= 0 && bookmark->Slot < BookmarkCount)
        Globals.Bookmarks[bookmark->Slot] = *bookmark;
}

void HandleShiftBookmarks(CommandMessage* message, int16_t*)
{
    // {first line, delta}; the sender waits, so its LineCount holds still.
    const auto* shift = reinterpret_cast<const int32_t*>(message->Argument);
    for (Bookmark& bookmark : Globals.Bookmarks) {
        if (bookmark.Owner == message->Sender && bookmark.Line >= shift[0])
            bookmark.Line = ClampLine(message->Sender, bookmark.Line + shift[1]);
    }
}

void HandleDropLineBookmarks(CommandMessage* message, int16_t*)
{
    for (Bookmark& bookmark : Globals.Bookmarks) {
        if (bookmark.Owner == message->Sender && bookmark.Line == message->Argument)
            bookmark.Owner = nullptr;
    }
}

void HandleDropBookmarks(CommandMessage* message, int16_t*)
{
    for (Bookmark& bookmark : Globals.Bookmarks) {
        if (bookmark.Owner == message->Sender)
            bookmark.Owner = nullptr;
    }
}
