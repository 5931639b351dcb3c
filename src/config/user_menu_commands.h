#pragma once
// The menu commands that edit the user menus, each under the menus lock
// of the main process: while one text edits them, another that tries is
// told "Menus access denied".
struct TextRecord;

// "Add menu": a macro, a name (none containing '='), and with user menus
// already there the place among them; every strip is then made anew.
void AddMenuCommand(TextRecord* record);
// "Edit label": a user menu gets a new name; a name "BAR" makes it a
// separator. Every strip is made anew.
void EditLabelCommand(TextRecord* record);
// "Edit macro": a user menu gets a new macro text; the strips stay.
void EditMacroCommand(TextRecord* record);
// "Remove menu": one user menu, or all of them with "Delete all". Every
// strip is made anew, after a cancel too.
void RemoveMenuCommand(TextRecord* record);
