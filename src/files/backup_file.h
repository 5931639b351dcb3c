#pragma once
// The backup a save keeps of the file it replaces.

struct TextRecord;

// Makes "<name>.bak" hold the current contents of `name`, replacing an
// older backup. The file itself stays in place (the backup is a second
// link to it, or a copy where the file system has no links), so a save
// that fails afterwards still leaves the old file whole. Reports "Creating
// backup" with the system's error when no backup can be made, a missing
// file included; the save goes on either way.
void MakeBackupFile(TextRecord* record, const char* name);
