#pragma once
// The DiskObject file format in memory: bytes to object and back. Encoding
// what was decoded gives the same bytes for every icon this layer writes.
// Pointer fields are stored as 0 for null and 1 for present; bytes after
// the last part of an icon are ignored on reading.
#include <cstddef>
#include <cstdint>
#include <vector>

#include "platform/icon/icon.h"

// Null with `error` set (BadFormat or Truncated) when the bytes are not a
// whole icon. The result is freed with FreeDiskObject.
DiskObject* DecodeDiskObject(const uint8_t* data, size_t size, IconError& error);

// Appends the icon's bytes to `out`. False with `error` = BadObject when a
// field can't be stored: wrong magic or version, a type outside WBDISK to
// WBAPPICON, an image of depth outside 1 to 8 or of negative size.
bool EncodeDiskObject(const DiskObject& object, std::vector<uint8_t>& out, IconError& error);
