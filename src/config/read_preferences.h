#pragma once
// Reading the preferences file "Tavrel.prefs": a line-oriented text file
// that begins with the line "TavrelPrefs 1.0" and holds sections of
// settings ([Window], [Police], [Modes], [Menus_ARexx]), key bindings
// ([Macros], also read as [FunctionKeys]) and user menus ([Menus]);
// [ORTHO] is accepted and skipped. Section names are matched with case
// ignored, sections may come in any order and repeat, later lines win.
// Lines end in a line feed alone; nothing is trimmed.
//
// Read once by the main process at start, before any text exists, into
// the settings given, GlobalKeyMap and the user menus. A first line other
// than the magic makes a good file with nothing in it. What was read
// before a fault stays in force.
//
// A missing file is no fault: on the first start the defaults stand and
// nothing is shown. A file that exists but can't be read, is empty, or
// holds a faulty line is one, and the caller shows "Error reading
// preferences".
#include <cstddef>

struct KeyMap;
struct SettingsRecord;

// 0 when all went well (or there is no file), else 1 or the message id of
// a user menu that failed (218 without memory).
int ReadPreferences(SettingsRecord* settings, const char* path);

// For the preferences window's "_Load": the settings and the key bindings
// of the file at `path` into `settings` and `keys`, with the script labels
// and the user menus left out. The result as above; a missing file is a
// fault here, since the user chose it.
int LoadPreferences(SettingsRecord* settings, KeyMap* keys, const char* path);

// The reading itself, over `size` bytes of a file's contents at `buffer`,
// which holds one more byte, zero, behind them; the buffer is scanned in
// place and changed. The result as above.
int ParsePreferences(SettingsRecord* settings, char* buffer, size_t size);
