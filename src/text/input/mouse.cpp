#include "text/input/mouse.h"

#include "frame/window/text_window.h"
#include "macro/direct_mode.h"
#include "macro/run_macro_command.h"
#include "platform/display/intuition.h"
#include "text/edit/block_marking.h"
#include "text/edit/cursor_placing.h"
#include "text/edit/edit_current_line.h"
#include "text/record/char_class.h"
#include "text/record/text_record.h"

#include <atomic>
#include <utility>

namespace {

// A drag counts only this long after the click, and longer when the
// pointer is still on the cursor's own cell; outside the window the text
// scrolls at most once in the longer time.
constexpr uint64_t DragDelayMicros = 400000;
constexpr uint64_t DragOnCursorMicros = 800000;

// The cell of the last click, common to all texts. Only the active
// window gets input, so the texts take turns; atomics keep the threads'
// accesses defined all the same.
std::atomic<int32_t> LastClickColumn{-1};
std::atomic<int32_t> LastClickRow{-1};

uint64_t Micros(uint32_t seconds, uint32_t micros)
{
    return static_cast<uint64_t>(seconds) * 1000000 + micros;
}

uint64_t SinceLastClick(const TextRecord* record, const IntuiMessage& message)
{
    uint64_t now = Micros(message.Seconds, message.Micros);
    uint64_t then = Micros(record->LastClickSeconds, record->LastClickMicros);
    return now > then ? now - then : 0;
}

void RememberTime(TextRecord* record, const IntuiMessage& message)
{
    record->LastClickSeconds = message.Seconds;
    record->LastClickMicros = message.Micros;
}

bool InTextArea(const TextRecord* record, MouseCell cell)
{
    return cell.Column >= 0 && cell.Row >= 0 && cell.Column < record->VisibleColumns && cell.Row < record->VisibleRows;
}

bool BlockMarkedIn(const TextRecord* record)
{
    return (record->TextState & BlockMarked) != 0;
}

void LeftButtonDown(TextRecord* record, const IntuiMessage& message)
{
    record->MouseDown |= 1;
    uint16_t qualifier = message.Qualifier;
    // Alt with the left button runs the text's click macro where the click
    // puts the cursor; with Shift, or with no macro yet, it asks for one.
    if (qualifier & IEQUALIFIER_ALT) {
        if (record->ClickMacroText[0] && !(qualifier & IEQUALIFIER_SHIFT)) {
            ClickCursor(record, message);
            RunMacroCommand(record, record->ClickMacroText);
        } else {
            AskClickMacro(record);
        }
        return;
    }
    bool shift = (qualifier & IEQUALIFIER_SHIFT) != 0;
    if (shift && !BlockMarkedIn(record)) {
        StartDrag(record, message, false);
        DragBlock(record, message, false);
        return;
    }
    if (shift) {
        DragBlock(record, message, false);
        return;
    }
    if ((qualifier & IEQUALIFIER_CONTROL) && BlockMarkedIn(record)) {
        DragBlock(record, message, true);
        return;
    }
    if (!ClickCursor(record, message))
        UnmarkBlock(record);
}

} // namespace

void HandleMouseButtons(TextRecord* record, const IntuiMessage& message)
{
    switch (message.Code) {
    case SELECTDOWN:
        if (record->TextState & WindowOpen)
            LeftButtonDown(record, message);
        break;
    case SELECTUP:
        record->MouseDown &= ~1u;
        break;
    case MENUUP:
        if (record->TextState & Iconified)
            RaiseTextWindow(record);
        break;
    default:
        break;
    }
}

void HandleMouseMove(TextRecord* record, const IntuiMessage& message)
{
    if (!(record->MouseDown & 1) || !(message.Qualifier & IEQUALIFIER_LEFTBUTTON) || !(record->TextState & WindowOpen))
        return;
    if (BlockMarkedIn(record) || StartDrag(record, message, true))
        DragBlock(record, message, false);
}

bool ClickCursor(TextRecord* record, const IntuiMessage& message)
{
    MouseCell cell = CellOfPosition(record, message.MouseX, message.MouseY);
    bool sameCell = cell.Column == LastClickColumn.load() && cell.Row == LastClickRow.load();
    if (!(message.Qualifier & IEQUALIFIER_ALT) && sameCell && DoubleClick(record->LastClickSeconds, record->LastClickMicros, message.Seconds, message.Micros)) {
        // The first click of the pair placed the cursor on the cell.
        char word[WordAtLimit + 1];
        unsigned char under = static_cast<unsigned char>(record->EditLine[record->CursorColumn]);
        if ((CharClass[under] & CharWordLetter) && WordAt(record->EditLine + record->CursorColumn, word) > 0)
            MarkText(record, word);
        else
            MarkLine(record);
        return true;
    }
    LastClickColumn = cell.Column;
    LastClickRow = cell.Row;
    RememberTime(record, message);
    SetCursorOnRow(record, cell.Column, cell.Row);
    return false;
}

bool StartDrag(TextRecord* record, const IntuiMessage& message, bool moved)
{
    MouseCell cell = CellOfPosition(record, message.MouseX, message.MouseY);
    if (moved) {
        bool onCursor = record->TopLine + cell.Row == record->CursorLine && record->LeftColumn + cell.Column == record->CursorColumn;
        if (SinceLastClick(record, message) < (onCursor ? DragOnCursorMicros : DragDelayMicros))
            return false;
    }
    MarkBlockStart(record);
    SetCursorOnRow(record, cell.Column, cell.Row);
    return true;
}

void DragBlock(TextRecord* record, const IntuiMessage& message, bool swap)
{
    MouseCell cell = CellOfPosition(record, message.MouseX, message.MouseY);
    if (!InTextArea(record, cell) && SinceLastClick(record, message) < DragOnCursorMicros)
        return;
    bool scrolled = SetCursorOnRow(record, cell.Column, cell.Row);
    if (swap) {
        std::swap(record->BlockStartLine, record->BlockEndLine);
        std::swap(record->BlockStartColumn, record->BlockEndColumn);
    }
    ExtendBlock(record);
    record->TextState |= BlockMarked;
    if (scrolled)
        RememberTime(record, message);
}
