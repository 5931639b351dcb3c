#pragma once
// The clip exchange form: an IFF FORM of type FTXT whose CHRS chunks hold
// the text. Sizes are big-endian; a chunk of odd size is followed by a zero
// pad byte that its size does not count, and the FORM's size counts
// everything after its own size field, pads included.
#include <cstddef>
#include <cstdint>
#include <string>
#include <vector>

enum class ClipStatus {
  Text,        // an FTXT clip; its text may be empty
  Empty,       // fewer than 12 bytes: no clip at all
  BadContent,  // not a FORM FTXT (another form, garbage), or cut short
  Failed,      // the clip could not be read or written
};

// The largest text one clip holds: its FORM size must fit in 32 bits.
constexpr size_t kMaxClipText = 0xFFFFFFF0u;

// "FORM", 12 + n (+1 when n is odd), "FTXT", "CHRS", n, the n bytes, the
// pad. Empty when `length` is above kMaxClipText.
std::vector<uint8_t> MakeFtxtClip(const char* text, size_t length);

// The text of a clip: every CHRS chunk of the form in order, zero bytes
// dropped, other chunks skipped. A CHRS chunk of size 0 ends the text.
// Bytes after the form are ignored. `text` is cleared first and filled only
// for ClipStatus::Text.
ClipStatus ParseFtxtClip(const uint8_t* data, size_t size, std::string& text);
