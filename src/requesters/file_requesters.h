#pragma once
// Choosing a file, and a font for the text.
#include "services/message_id.h"

#include <atomic>
#include <cstdint>
#include <string>

struct TextRecord;

// Where the file requester opens, for all texts: taken over from the last
// accepted one. A height of 0 means not yet set: the first one is centered
// on the screen, a third of its width wide (at least 320) and two thirds of
// its height high.
extern std::atomic<int> FileReqLeft, FileReqTop, FileReqWidth, FileReqHeight;

// A file under `title`, starting in `drawer` (FileDirectorySize bytes) with
// the name `file` (FileNameSize bytes); both receive the choice. A title
// that begins with 'S' asks for a file to save. 1 accepted, else 0.
int FileRequester(TextRecord* record, const char* title, char* drawer, char* file);
int FileRequesterId(TextRecord* record, MessageId title, char* drawer, char* file);
// FileRequesterId, then drawer and file joined into `path` (JoinedPathSize
// bytes). A null `file` starts with an empty name. 1 or 0.
int AskFile(TextRecord* record, MessageId title, char* drawer, char* file, char* path);
// AskFile starting in `directory` with the name `file`, which stay as they
// are.
int AskFileFrom(TextRecord* record, MessageId title, const char* directory, const char* file, char* path);

// A fixed-width font chosen in the font dialog titled `title`, starting
// from *name and *size, which take the choice. 1 accepted, else 0.
int ChooseFont(TextRecord* record, MessageId title, std::string* name, uint16_t* size);

// "Font": a fixed-width font for this text only; the window is laid out
// and drawn again in it. The settings don't change.
void FontRequester(TextRecord* record);
