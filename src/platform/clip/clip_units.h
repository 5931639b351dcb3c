#pragma once
// Clip units 0 to 255: one clip each, kept as a file named after the unit
// number in the clip directory. A clip is written whole through a temporary
// file renamed over the old one, so a reader sees the old clip or the new
// one, never part of one; units are shared by every thread and program.
//
// While a DesktopClipboard is installed, unit 0 is also the desktop's
// clipboard: writing it puts the clip's text there (or clears it when the
// clip holds no FTXT), and reading it gives the desktop's text as an FTXT
// clip whenever the desktop holds text, the clip file otherwise.
#include <cstdint>
#include <string>
#include <vector>

constexpr int CLIP_UNITS = 256;

// The directory of the clip files: the CLIPS: volume, or the directory set
// here ("" goes back to CLIPS:). Meant to be set at start-up or by a test;
// a set directory must have its parent, CLIPS: is made with its parents.
void SetClipDirectory(const std::string& directory);
std::string ClipDirectory();

// The clip directory is used only while it is private: owned by the user
// and writable by nobody else, and for CLIPS: its parent too (the runtime
// directory of the program, or its fallback in the temporary directory).
// Anything else is refused with ERROR_PLACE_NOT_PRIVATE.

// Replaces the clip of `unit` with `clip`, the directory made (mode 0700)
// when missing. False (with IoErr) for a unit outside 0 to 255, a directory
// that isn't private or a failed write, which leaves the old clip.
bool WriteClipUnit(int unit, const std::vector<uint8_t>& clip);

// The bytes of the clip of `unit`; a unit never written gives no bytes.
// False (with IoErr) for a unit outside 0 to 255, a directory that isn't
// private, a unit that isn't a regular file (refused without waiting on
// it: a FIFO is never opened for a blocking read) or a failed read.
bool ReadClipUnit(int unit, std::vector<uint8_t>& clip);
