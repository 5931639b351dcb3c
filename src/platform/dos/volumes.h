#pragma once
// Volume names: a path that begins with "NAME:" (no '/' before the colon) is
// resolved through a fixed table, names compared with case ignored:
//
//   PROGDIR:  the installed data directory (see SetProgramDirectory)
//   S:        $XDG_CONFIG_HOME/tavrel, default ~/.config/tavrel
//   REXX:     the S: directory + /rexx
//   CLIPS:    $XDG_RUNTIME_DIR/tavrel/clips, or <temp>/tavrel-<uid>/clips
//             when XDG_RUNTIME_DIR is unset
//   T:        the temporary directory: $TMPDIR, default /tmp
//   PRT:      the printer; no directory (see IsPrinterPath)
//
// The environment is read at each call, so a test can point every volume at
// a directory of its own with setenv. Environment values that are not
// absolute paths are ignored, as the XDG rules say. Nothing here creates a
// directory except EnsureVolumeDirectory.
#include <string>

// The path with its volume name replaced by the volume's directory:
// "S:Tavrel.prefs" gives "<config>/Tavrel.prefs", "REXX:" the directory
// itself. Paths without a volume name, unknown volume names and PRT: paths
// are given back unchanged (an unknown volume is then a name that will not
// be found, as on any other file).
std::string ExpandVolumePath(const char* path);

// The directory of a volume, given with or without its colon ("S" or
// "s:"); "" for PRT: and for unknown names.
std::string VolumeDirectory(const char* volume);

// Creates the directory of a volume and its missing parents with mode 0700.
// True when the directory exists afterwards; false for PRT:, unknown
// volumes, or a failure to create it (IoErr tells why).
bool EnsureVolumeDirectory(const char* volume);

// True when the path names the printer: its volume is PRT:, case ignored.
bool IsPrinterPath(const char* path);

// Sets the directory of PROGDIR:. Null or "" goes back to the default: the
// running program's <exe dir>/../share/tavrel when that directory exists
// (an installed program), else <exe dir>/data when that exists (a program
// run from its build tree with the data beside it), else <exe dir>.
void SetProgramDirectory(const char* directory);
