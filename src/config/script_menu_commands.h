#pragma once
// The commands of the "ARexx" menu: "Call script" and the twenty script
// items. Starting a script and loading one for editing belong to the
// script service, which stands above the menus and installs itself here
// at start.
struct TextRecord;

struct ScriptActions {
    void (*Run)(TextRecord* record, const char* name);  // start a script
    void (*Load)(TextRecord* record, const char* name); // open it as a text
};

// Kept by pointer; null takes the commands out of service (a pick beeps).
void SetScriptActions(const ScriptActions* actions);

// "Call script": asks for a script's name (an empty answer opens the file
// requester in ScriptPath) and starts it; with Ctrl held at the pick, opens
// the last name asked for as a text instead.
void CallScriptCommand(TextRecord* record);

// A script item: runs the script of its label (with Ctrl, opens it as a
// text); with no label or with Shift, asks for the label, an empty answer
// choosing a file.
void ScriptItemCommand(TextRecord* record);
