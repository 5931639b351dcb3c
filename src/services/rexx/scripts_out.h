#pragma once
// The text's side of its scripts: the messages it has sent to the script
// server and not yet had back.
struct TextRecord;
struct RexxMsg;

// Puts a script message at the server's port; then PendingArexxCount of
// the text goes up by one. False when the server is not there: the
// message is the caller's again.
bool SendToScriptServer(TextRecord* record, RexxMsg* message);

// Called for an answer taken back: PendingArexxCount goes down by one.
void ScriptAnswered(TextRecord* record);
