#include "platform/clip/ftxt.h"

#include <gtest/gtest.h>

#include <random>
#include <string>
#include <vector>

namespace {

using Bytes = std::vector<uint8_t>;

Bytes Of(const std::string& text) { return Bytes(text.begin(), text.end()); }

// One IFF chunk: id, big-endian size, data, and the pad byte after odd data.
std::string Chunk(const char* id, const std::string& data) {
  uint32_t n = static_cast<uint32_t>(data.size());
  std::string chunk(id, 4);
  for (int shift = 24; shift >= 0; shift -= 8) chunk.push_back(static_cast<char>(n >> shift));
  chunk += data;
  if (n & 1) chunk.push_back('\0');
  return chunk;
}

std::string Form(const char* type, const std::string& chunks) {
  return Chunk("FORM", std::string(type, 4) + chunks);
}

TEST(FtxtClip, LayoutOfOddAndEvenTexts) {
  using namespace std::string_literals;
  EXPECT_EQ(MakeFtxtClip("abc", 3), Of("FORM\0\0\0\x10"s "FTXTCHRS\0\0\0\x03"s "abc\0"s));
  EXPECT_EQ(MakeFtxtClip("a\nb\n", 4), Of("FORM\0\0\0\x10"s "FTXTCHRS\0\0\0\x04"s "a\nb\n"s));
  EXPECT_EQ(MakeFtxtClip("", 0), Of("FORM\0\0\0\x0C"s "FTXTCHRS\0\0\0\0"s));
  EXPECT_TRUE(MakeFtxtClip("", kMaxClipText + 1).empty());
}

TEST(FtxtClip, ReadsTheTextOfAClip) {
  using namespace std::string_literals;
  struct Case {
    const char* what;
    std::string clip;
    ClipStatus status;
    std::string text;
  };
  const Case cases[] = {
      {"several chunks, odd ones padded",
       Form("FTXT", Chunk("CHRS", "ab") + Chunk("CHRS", "c") + Chunk("CHRS", "de\n")),
       ClipStatus::Text, "abcde\n"},
      {"other chunks skipped",
       Form("FTXT", Chunk("FONS", "xyz") + Chunk("CHRS", "text") + Chunk("UTF8", "skip")),
       ClipStatus::Text, "text"},
      {"zero bytes dropped", Form("FTXT", Chunk("CHRS", "a\0b\0\0c"s)), ClipStatus::Text, "abc"},
      {"an empty chunk ends the text",
       Form("FTXT", Chunk("CHRS", "ab") + Chunk("CHRS", "") + Chunk("CHRS", "cd")),
       ClipStatus::Text, "ab"},
      {"last pad missing", "FORM\0\0\0\x0F"s "FTXTCHRS\0\0\0\x03"s "abc", ClipStatus::Text,
       "abc"},
      {"no bytes", "", ClipStatus::Empty, ""},
      {"a picture", Form("ILBM", Chunk("BMHD", std::string(20, '\1'))), ClipStatus::BadContent,
       ""},
      {"chunk longer than the form", "FORM\0\0\0\x0E"s "FTXTCHRS\0\0\0\x09"s "ab",
       ClipStatus::BadContent, ""},
  };
  for (const Case& c : cases) {
    Bytes bytes = Of(c.clip);
    std::string text = "stale";
    EXPECT_EQ(ParseFtxtClip(bytes.data(), bytes.size(), text), c.status) << c.what;
    EXPECT_EQ(text, c.text) << c.what;
  }
}

TEST(FtxtClip, DamagedClipsAreRefusedSafely) {
  Bytes whole = Of(Form("FTXT", Chunk("FONS", "f") + Chunk("CHRS", "abc") + Chunk("CHRS", "de")));
  for (size_t length = 0; length < whole.size(); ++length) {
    Bytes cut(whole.begin(), whole.begin() + static_cast<long>(length));
    std::string text;
    ClipStatus expected = length < 12 ? ClipStatus::Empty : ClipStatus::BadContent;
    EXPECT_EQ(ParseFtxtClip(cut.data(), cut.size(), text), expected) << length;
  }
  std::mt19937 random(5301);
  for (int round = 0; round < 5000; ++round) {
    Bytes bytes = whole;
    std::uniform_int_distribution<size_t> where(4, bytes.size() - 1);
    for (int i = 0; i <= round % 3; ++i) bytes[where(random)] = static_cast<uint8_t>(random());
    std::string text;
    if (ParseFtxtClip(bytes.data(), bytes.size(), text) == ClipStatus::Text) {
      EXPECT_EQ(text.find('\0'), std::string::npos);
      EXPECT_LE(text.size(), bytes.size() - 20);
    }
  }
}

}  // namespace
