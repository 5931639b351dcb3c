#include <gtest/gtest.h>
#include <stdlib.h>

#include <atomic>
#include <fstream>
#include <iterator>
#include <string>
#include <thread>
#include <vector>

#include "clip_directory_fixture.h"
#include "platform/clip/clip_text.h"
#include "platform/clip/clip_units.h"
#include "platform/clip/desktop_clipboard.h"

namespace {

using ClipUnits = ClipDirectoryTest;

std::string Read(int unit, ClipStatus expected) {
  std::string text;
  EXPECT_EQ(ReadClipText(unit, text), expected) << "unit " << unit;
  return text;
}

TEST_F(ClipUnits, EachUnitKeepsItsOwnClip) {
  EXPECT_EQ(Read(0, ClipStatus::Empty), "");  // nothing written yet
  ASSERT_TRUE(WriteClipText(0, "zero\n", 5));
  ASSERT_TRUE(WriteClipText(255, "last", 4));
  EXPECT_EQ(Read(0, ClipStatus::Text), "zero\n");
  EXPECT_EQ(Read(255, ClipStatus::Text), "last");
  for (int unit : {-1, 256}) {
    EXPECT_FALSE(WriteClipText(unit, "x", 1));
    EXPECT_EQ(Read(unit, ClipStatus::Failed), "");
  }
  // A failed write leaves the old clip.
  SetClipDirectory(root_ + "/no/such/place");
  EXPECT_FALSE(WriteClipText(0, "lost", 4));
  SetClipDirectory(root_ + "/clips");
  EXPECT_EQ(Read(0, ClipStatus::Text), "zero\n");
}

// Without a directory of its own, the clips live in CLIPS:.
TEST_F(ClipUnits, DefaultDirectoryIsTheClipsVolume) {
  const char* saved = getenv("XDG_RUNTIME_DIR");
  std::string old = saved != nullptr ? saved : "";
  setenv("XDG_RUNTIME_DIR", root_.c_str(), 1);
  SetClipDirectory("");
  ASSERT_TRUE(WriteClipText(12, "odd", 3));
  std::ifstream in(root_ + "/tavrel/clips/12", std::ios::binary);
  EXPECT_EQ(std::vector<uint8_t>(std::istreambuf_iterator<char>(in), {}), MakeFtxtClip("odd", 3));
  if (saved != nullptr) setenv("XDG_RUNTIME_DIR", old.c_str(), 1);
  else unsetenv("XDG_RUNTIME_DIR");
}

// A reader never sees a clip half written, however the writes interleave.
TEST_F(ClipUnits, ReadersSeeWholeClipsOnly) {
  const std::string big(200000, 'b');
  const std::string small = "small";
  ASSERT_TRUE(WriteClipText(7, small.data(), small.size()));
  std::atomic<bool> done{false};
  std::thread writer([&] {
    for (int i = 0; i < 200; ++i) {
      const std::string& text = i % 2 == 0 ? big : small;
      EXPECT_TRUE(WriteClipText(7, text.data(), text.size()));
    }
    done = true;
  });
  int reads = 0;
  while (!done || reads < 50) {
    std::string text;
    ASSERT_EQ(ReadClipText(7, text), ClipStatus::Text);
    ASSERT_TRUE(text == big || text == small) << "read " << text.size() << " bytes";
    ++reads;
  }
  writer.join();
}

// A desktop clipboard that keeps what it is given.
struct FakeDesktop : DesktopClipboard {
  bool ReadText(std::string& latin1) override {
    latin1 = text;
    return !text.empty();
  }
  void WriteText(const std::string& latin1) override { text = latin1; }
  std::string text;
};

TEST_F(ClipUnits, UnitZeroGoesThroughTheDesktop) {
  FakeDesktop desktop;
  SetDesktopClipboard(&desktop);
  ASSERT_TRUE(WriteClipText(0, "to desktop", 10));
  ASSERT_TRUE(WriteClipText(5, "unit five", 9));
  EXPECT_EQ(desktop.text, "to desktop");
  desktop.text = std::string("from\0 elsewhere", 15);  // another program copied
  EXPECT_EQ(Read(0, ClipStatus::Text), "from elsewhere");
  // A clip that is no text clears the desktop; unit 0 is then its file.
  ASSERT_TRUE(WriteClipUnit(0, {'F', 'O', 'R', 'M', 0, 0, 0, 4, 'I', 'L', 'B', 'M'}));
  EXPECT_EQ(desktop.text, "");
  EXPECT_EQ(Read(0, ClipStatus::BadContent), "");
  SetDesktopClipboard(nullptr);
  ASSERT_TRUE(WriteClipText(0, "file only", 9));
  EXPECT_EQ(desktop.text, "");
}

}  // namespace
