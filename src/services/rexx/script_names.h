#pragma once
// Where the text looks for scripts: ScriptPath (in AppGlobals, under
// ScriptPathLock) and the full names made from it.
#include <cstddef>

struct TextRecord;

// Size of a resolved script name, terminator included.
constexpr int ScriptNameSize = 160;

// A name with a ':' in it, or one that begins with '/', is a full path,
// copied and cut to ScriptNameSize - 1 characters. Any other is joined to
// ScriptPath. 0, or 215 when the joined name would not fit.
int ResolveScriptName(const char* name, char* buffer);

// The old ScriptPath into `old` (ScriptPathSize bytes); a non-empty
// `path` becomes the new one, cut to 256 characters.
void ExchangeScriptPath(const char* path, char* old);

// ResolveScriptName for the script server, which takes any buffer size.
bool ResolveForScriptServer(const char* name, char* buffer, size_t size);
