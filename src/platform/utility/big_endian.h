#pragma once
// Big-endian words, as the icon and clip formats and the host sockets'
// frames store them: read and written at a place, read with bounds checks
// from a byte range, and appended to a growing buffer.
#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

inline uint32_t ReadBigEndian32(const uint8_t* at) {
  return uint32_t{at[0]} << 24 | uint32_t{at[1]} << 16 | uint32_t{at[2]} << 8 | at[3];
}

inline void WriteBigEndian32(uint8_t* at, uint32_t value) {
  at[0] = static_cast<uint8_t>(value >> 24);
  at[1] = static_cast<uint8_t>(value >> 16);
  at[2] = static_cast<uint8_t>(value >> 8);
  at[3] = static_cast<uint8_t>(value);
}

// Reads from a byte range. A read past the end sets `failed`, reads zeros
// and consumes nothing, so a caller may read a whole record and check once.
class BigEndianReader {
 public:
  BigEndianReader(const uint8_t* data, size_t size) : data_(data), left_(size) {}

  bool failed() const { return failed_; }
  size_t left() const { return left_; }

  uint8_t U8() { return static_cast<uint8_t>(Take(1)); }
  uint16_t U16() { return static_cast<uint16_t>(Take(2)); }
  uint32_t U32() { return static_cast<uint32_t>(Take(4)); }
  int16_t S16() { return static_cast<int16_t>(U16()); }
  int32_t S32() { return static_cast<int32_t>(U32()); }
  // `count` raw bytes, or an empty view after a failure.
  std::string_view Bytes(size_t count) {
    if (failed_ || count > left_) {
      failed_ = true;
      return {};
    }
    std::string_view bytes(reinterpret_cast<const char*>(data_), count);
    data_ += count;
    left_ -= count;
    return bytes;
  }

 private:
  uint64_t Take(size_t count) {
    if (failed_ || count > left_) {
      failed_ = true;
      return 0;
    }
    uint64_t value = 0;
    for (size_t i = 0; i < count; ++i) value = (value << 8) | data_[i];
    data_ += count;
    left_ -= count;
    return value;
  }

  const uint8_t* data_;
  size_t left_;
  bool failed_ = false;
};

inline void PutU8(std::vector<uint8_t>& out, uint8_t value) { out.push_back(value); }
inline void PutU16(std::vector<uint8_t>& out, uint16_t value) {
  out.push_back(static_cast<uint8_t>(value >> 8));
  out.push_back(static_cast<uint8_t>(value));
}
inline void PutU32(std::vector<uint8_t>& out, uint32_t value) {
  PutU16(out, static_cast<uint16_t>(value >> 16));
  PutU16(out, static_cast<uint16_t>(value));
}
