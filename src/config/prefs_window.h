#pragma once
// "Startup prefs": the window where the settings of new texts and the key
// map are edited, on two pages under tabs, "_Preferences" and "_Function
// keys". It runs in the process of the text that opened it, modal to that
// text only, and holds the key map editing lock for its whole life, so a
// second text's window is refused with "Keys access denied" while other
// texts go on working and using their keys.
//
// The gadgets edit WorkSettings, a copy of Settings, and LocalKeyMap, the
// bindings changed during this opening (an empty text there removes the
// binding). "_Use", "_Save" and "S_ave as" put them in force (Settings for
// texts opened from now on, the key map at once for all); "_Save" also
// writes the preferences file, "S_ave as" a file the user chooses.
// "Cancel", Esc and the close gadget drop them.
#include <cstdint>

struct TextRecord;

// Kept from one opening to the next, not in the file: the page shown, the
// qualifier the function keys page shows, the character of the free key row.
extern uint32_t CurrentPage;
extern uint32_t SelectedQualifier;
extern char EditedKey[2];

void PreferencesWindow(TextRecord* record);
