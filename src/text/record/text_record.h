#pragma once
// The record of one open text. It is created and owned by the text's own
// process (see create_text_record.h) and worked on only by that process.
// Other processes read TextState, which is atomic for that reason;
// FileDirectory and FileName, only under TextListLock (text_names.h); and the
// rest (Window, LineCount, Options) only while the text waits for their
// answer. The main process changes only the list links.
//
// The document is the LineTable: runs of lines whose strings lie in loaded
// text or in LinePool (line_table.h). The line under the cursor lives in
// EditLine and goes back to the table only on FlushEditLine (edit_line.h).
// Invariants while the process waits for input:
//   - LineCount >= 1 (ResetText leaves 0 for the loader) and is the sum of
//     the runs' counts; RunCount + LineChangeRuns <= RunCapacity except
//     when a change has just used the spare runs.
//   - No stored string ends in a space or holds a newline.
//   - 0 <= CursorLine < LineCount, 0 <= CursorColumn < MaxLineLength.
//   - EditLine holds the cursor's line (maybe not yet flushed), padded with
//     spaces up to CursorColumn; EditLength == strlen(EditLine) <=
//     MaxLineLength, and every byte behind the terminator up to index
//     MaxLineLength is 0. After a flush EditLength may be below CursorColumn.
#include "platform/display/shared_field.h"
#include "platform/dos/paths.h"

#include <cstdint>

struct Task;
struct MsgPort;
struct MemPool;
struct Window;
struct Menu;
struct Image;
struct Gadget;
struct TextFont;
struct AppWindow;
struct MacroVariable;
struct LineRun;
struct LoadedTextBlock;

// TextState bits. WindowOpen, Iconified and Hidden exclude each other.
constexpr uint16_t WindowOpen = 0x01;  // the text window is open and may be drawn in
constexpr uint16_t Iconified = 0x02;   // only the small title window is open
constexpr uint16_t Hidden = 0x04;      // no window at all
constexpr uint16_t BlockMarked = 0x40; // the four block fields are valid
constexpr uint16_t Batch = 0x80;       // multi-line operation: no drawing until the caller repaints
constexpr uint16_t Busy = 0x100;       // a command runs: no title updates, search window refused

// Options bits. SaveTabs, SaveIcon, MakeBackup and FullName mirror the check
// marks of their menu items. Other bits of the word mean nothing to a text.
constexpr uint32_t InsertMode = 0x04; // typing inserts; clear: typing overwrites
constexpr uint32_t IgnoreCase = 0x08; // "UPPER=lower": search and sorting ignore case
constexpr uint32_t SaveTabs = 0x10;   // saving compresses spaces to tabs
constexpr uint32_t SaveIcon = 0x20;   // saving writes an icon
constexpr uint32_t MakeBackup = 0x40; // saving keeps the old file as ".bak"
constexpr uint32_t FullName = 0x100;  // the title shows the full path

// Both fields hold any Linux path and file name whole: a cut name would make
// "Save text" write a different file.
constexpr int32_t FileDirectorySize = PathSize;
constexpr int32_t FileNameSize = NameSize;

struct TextRecord {
    TextRecord* NextText; // links in the main process's list of texts
    TextRecord* PreviousText;
    Task* OwnerProcess;     // the text process
    MsgPort* MainPort;      // the main process's command port
    MsgPort* ReplyPort;     // the process's own port for synchronous answers
    MsgPort* CommandPort;   // where main sends commands to this text
    MsgPort* HostPort;      // public script port named after the process; may be null
    MsgPort* AppWindowPort; // files dropped on the window; may be null
    ::Window* Window;       // the text window, the iconified title window, or null when hidden
    Image* ArrowImages[4];  // the four scroller arrows
    Menu* MenuStrip;
    int16_t WindowLeft, WindowTop, WindowWidth, WindowHeight; // geometry for reopening
    uint16_t WindowMaxWidth, WindowMaxHeight;
    int32_t TopLine;       // first visible line
    int32_t LeftColumn;    // first visible column
    uint16_t LastHorizPot; // scroller values when last synchronised
    uint16_t LastVertPot;
    uint32_t Options;
    int32_t CursorLine;
    int32_t CursorColumn;
    int32_t LineCount;                    // lines of the text
    int32_t RunCount;                     // runs in use in LineTable
    int32_t RunCapacity;                  // runs that LineTable has room for
    int32_t LastEditLine, LastEditColumn; // where the text last changed
    int32_t EditLength;                   // strlen(EditLine)
    char FileDirectory[FileDirectorySize];
    char FileName[FileNameSize];           // file part of the name; the default name while there is no file
    char LastDirectory[FileDirectorySize]; // where file requesters open
    char MacroCommandText[256];            // last "Macro command" entered from the menu
    char ClickMacroText[256];              // macro run by Alt and the left mouse button
    char ArexxCommandText[258];            // last script command or name entered
    char* EditLine;                        // the four line buffers, MaxLineLength + 1 bytes each,
    char* RecallLine;                      //   consecutive in one block that starts at EditLine
    char* WorkLine;
    char* RenderLine;
    char TitleBuffer[JoinedPathSize + 64]; // the window title: the full name and the status
    LineRun* LineTable;                    // the runs of lines, from AllocVec, not from the pool
    MemPool* LinePool;                     // strings of lines changed since the load
    LoadedTextBlock* LoadedText;           // strings of loaded lines, newest block first
    int32_t AppendRun;                     // run that the next loaded line may extend, or -1
    // The line last found in the table, so that walking line by line
    // doesn't search: its run, its index and its string; LookupRun -1
    // when the table has changed since.
    mutable int32_t LookupRun, LookupLine;
    mutable char* LookupText;
    Shared<uint16_t> TextState;
    int16_t Modified; // 1 when the text differs from its file
    // 1 when the text holds less than its file: a load stopped early, or the
    // file exists but couldn't be read. Saving over that file asks first.
    int16_t PartOfFile;
    int16_t IconLeft, IconTop;                // position of the iconified title window
    int16_t CursorShown;                      // 1 while the cursor is drawn
    // Macro commands under way that hold the drawing back (held_drawing.h),
    // and 1 when something was not drawn because of them.
    int16_t DrawingHeld, DrawingMissed;
    int32_t BlockStartColumn, BlockStartLine; // fixed end of the block
    int32_t BlockEndColumn, BlockEndLine;     // moving end of the block
    int32_t VisibleRows, VisibleColumns;      // text area in character cells
    int32_t MaxLineLength;                    // longest line in characters, at least 1
    MacroVariable* MacroVariables;
    int32_t MacroVariableCount;
    uint32_t LastClickSeconds, LastClickMicros;
    int32_t MouseX, MouseY;           // pointer position of the last input event
    int32_t PendingArexxCount;        // script messages under way
    int32_t CharWidth, CharHeight;    // cell size as the window saw it; width at least 8
    uint32_t LastCode, LastQualifier; // input event in hand; LastQualifier 0 between events
    char MacroScratch[256];           // help context and error text of the macro language
    int16_t BreakFlag;                // set by the process's exception while a macro loop runs
    // Serves the text window while a file or font requester is open.
    void (*FontHook)(TextRecord* record);
    const char* FontName; // the font asked for
    uint16_t FontSize;
    ::TextFont* TextFont;    // the open font; may be null
    int32_t BusyDepth;       // nesting of the busy state
    int32_t HelpCommandId;   // help id of the running menu command; -1 in the function list
    uint32_t MouseDown;      // bit 0: left button down in the text area
    ::AppWindow* AppWindow;  // may be null
    Gadget* RequesterGadget; // list gadget of the open list requester
    int16_t TabSize;         // 1 to 40
    char TabLabel[30];       // menu label showing the tab size
    char* FileCursor;        // buffered reader and writer
    char* FileBuffer;
    int32_t FileLimit, FilePosition, FileBufferSize;
    int16_t BackgroundPen, TextPen, WhitePen, BluePen, RedPen, YellowPen;
    // Rank of the text's start among all starts; keeps the list of texts in
    // opening order although texts register from their own threads.
    uint32_t OpeningNumber;
};
