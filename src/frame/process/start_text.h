#pragma once
// Starting text processes.
#include <cstdint>

struct MsgPort;

// Starts a text process named "Tavrel.<n>" for the lowest n from 0 to 999
// that no running process bears; when all are taken the name with 999 is
// used a second time and n is 1000. The process gets its start message
// (file name copy, main port, first text of TextList as the text that
// asked) and TextCount is raised. Result n + 1, or 0 after reporting "Error
// opening screen" (no screen), "Not enough memory" (no message); a process
// that can't be created gives 0 silently. A file name that can't be copied
// starts an empty text. Safe from the main process and from text processes.
long StartTextProcess(MsgPort* mainPort, const char* fileName);

// While main reads its arguments it has no screen yet: the texts of the
// command line start without one and read their files while the display
// starts up. Each asks for the screen when it opens its window, which
// reports a missing screen. Main sets this around its arguments only.
void StartTextsBeforeScreen(bool before);

// The Argument of the start message of a text started before the screen.
constexpr intptr_t StartBeforeScreen = 1;

// A text for each file matching `pattern` (a name without wildcards is
// itself); "No file to load" when nothing matches. Each text gets the
// matched file's full path, as all processes share one current directory.
// Stops at the first text that can't be started. Result: texts started.
long StartFromPattern(MsgPort* mainPort, const char* pattern);
