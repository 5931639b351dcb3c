#pragma once
// The reports and questions of loading and saving a text.
//
// They are shown in requesters in front of the text. A set of dialogs may be
// installed in their place; tests answer and record through it.
#include "platform/dos/paths.h"
#include "services/message_id.h"

#include <cstddef>

struct TextRecord;

// Longest path the file commands build, terminator included.
constexpr size_t FilePathSize = JoinedPathSize;

struct FileDialogs {
    // `message` in a box; `fault` is the system's text of the error for a
    // DOS error report, else null.
    void (*Report)(TextRecord* record, MessageId message, const char* fault);
    // A yes/no question: 1 yes, 0 no, -1 closed.
    int (*Confirm)(TextRecord* record, MessageId question);
    // A file chosen under the title `title`, starting in `directory` with
    // the name `file`: 1 with the full name in `path` (FilePathSize bytes),
    // 0 when cancelled.
    int (*AskFile)(TextRecord* record, MessageId title, const char* directory, const char* file, char* path);
};

// Installs `dialogs` (kept by pointer), or with null the requesters.
void SetFileDialogs(const FileDialogs* dialogs);

// The message alone.
void ErrorRequester(TextRecord* record, MessageId message);
// The message, "DOS error" and the text of the calling thread's IoErr.
// Nothing is shown when there is no error code to explain.
void DosErrorRequester(TextRecord* record, MessageId message);
// The message with the text of the calling thread's IoErr when there is
// one, else the message alone: for operations that may fail with or without
// a system error.
void FaultRequester(TextRecord* record, MessageId message);
// 1 yes, 0 no, -1 closed.
int ConfirmRequester(TextRecord* record, MessageId question);
// Asks before a save overwrites the file of a text that holds only part of
// it (PartOfFile): 1 yes, 0 no, -1 closed. It asks "File allready exists /
// Overwrite it?".
int ConfirmPartialOverwrite(TextRecord* record);
// Asks for a file from the text's LastDirectory starting with the name
// `file`, or with a null `file` the text's FileName: 1 with the full name
// in `path` (FilePathSize bytes), else 0.
int AskTextFile(TextRecord* record, MessageId title, char* file, char* path);
