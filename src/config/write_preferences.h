#pragma once
// Writing the preferences file: the global Settings, GlobalKeyMap and the
// user menus, in a fixed order that ReadPreferences reads back to the same
// values (see FormatPreferences for the bytes).
//
// The file is replaced whole: the new contents go to a file beside it,
// which is synced and renamed over the old one, so a write that fails
// (a full disk, a directory that refuses new files) or is cut short
// leaves the previous file as it was. Every failure is shown with the DOS
// error requester.
#include <string>

struct KeyMap;
struct SettingsRecord;
struct TextRecord;
struct UserMenuState;

// The file's bytes: the magic line; [Menus_ARexx] with each script label;
// with a font name, [Police] and [Window]; [Modes] with the toggles, the
// requester position, the line length and any toolbar name; with any key
// bound, [Macros] with one KEY="TEXT" line per binding (written raw); with
// any user menu, [Menus] with LABEL=MACRO lines (a separator as BAR).
std::string FormatPreferences(const SettingsRecord& settings, const KeyMap& keys, const UserMenuState& menus);

// Writes the file at `path` from the calling text, which holds the key
// map editing lock so that no other text changes the map meanwhile; its
// window is locked and its title says "Saving prefs" while it runs. 0 on
// success, -1 when the file could not be created, 1 when writing or
// replacing failed.
int WritePreferences(TextRecord* record, const char* path);
