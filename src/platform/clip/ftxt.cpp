#include "platform/clip/ftxt.h"
#include "platform/utility/big_endian.h"

#include <cstring>

namespace {

constexpr size_t kHeaderSize = 20;  // FORM, size, FTXT, CHRS, size
constexpr size_t kChunkHeaderSize = 8;

bool IsId(const uint8_t* at, const char* id) { return std::memcmp(at, id, 4) == 0; }

}  // namespace

std::vector<uint8_t> MakeFtxtClip(const char* text, size_t length) {
  if (length > kMaxClipText) return {};
  size_t pad = length & 1;
  std::vector<uint8_t> clip(kHeaderSize + length + pad, 0);
  std::memcpy(&clip[0], "FORM", 4);
  WriteBigEndian32(&clip[4], static_cast<uint32_t>(12 + length + pad));
  std::memcpy(&clip[8], "FTXT", 4);
  std::memcpy(&clip[12], "CHRS", 4);
  WriteBigEndian32(&clip[16], static_cast<uint32_t>(length));
  if (length > 0) std::memcpy(&clip[kHeaderSize], text, length);
  return clip;
}

ClipStatus ParseFtxtClip(const uint8_t* data, size_t size, std::string& text) {
  text.clear();
  if (size < 12) return ClipStatus::Empty;
  if (!IsId(data, "FORM") || !IsId(data + 8, "FTXT")) return ClipStatus::BadContent;
  uint32_t formSize = ReadBigEndian32(data + 4);
  if (formSize < 4 || formSize > size - 8) return ClipStatus::BadContent;
  const size_t end = 8 + size_t{formSize};
  std::string found;
  size_t at = 12;
  while (at < end) {
    if (end - at < kChunkHeaderSize) return ClipStatus::BadContent;
    const uint8_t* chunk = data + at;
    uint32_t chunkSize = ReadBigEndian32(chunk + 4);
    at += kChunkHeaderSize;
    if (chunkSize > end - at) return ClipStatus::BadContent;
    if (IsId(chunk, "CHRS")) {
      if (chunkSize == 0) break;
      for (size_t i = 0; i < chunkSize; ++i) {
        if (data[at + i] != 0) found.push_back(static_cast<char>(data[at + i]));
      }
    }
    // The pad byte after an odd chunk; a form that ends right after the
    // chunk without it is taken as it is.
    at += chunkSize;
    if ((chunkSize & 1) != 0 && at < end) ++at;
  }
  text = std::move(found);
  return ClipStatus::Text;
}
