#pragma once
// Where the preferences file lives: the directory PrefsPath, "s:" unless a
// tool type or PREFPATH changed it, which the volume table maps to the
// user's configuration directory. Once texts run, PrefsPath is read and
// written only under Globals.PrefsPathLock.
constexpr int PrefsPathSize = 257;
constexpr const char* PrefsFileName = "Tavrel.prefs";

extern char PrefsPath[PrefsPathSize];

// PrefsPath joined with "Tavrel.prefs", taken under the lock; `output`
// holds JoinedPathSize bytes.
void PrefsFilePath(char* output);
