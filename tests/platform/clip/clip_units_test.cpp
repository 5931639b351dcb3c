#include <gtest/gtest.h>
#include <sys/stat.h>

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
  ASSERT_TRUE(WriteClipText(1, "one", 3));
  ASSERT_TRUE(WriteClipText(255, "last", 4));
  ASSERT_TRUE(WriteClipText(1, "one again", 9));
  EXPECT_EQ(Read(0, ClipStatus::Text), "zero\n");
  EXPECT_EQ(Read(1, ClipStatus::Text), "one again");
  EXPECT_EQ(Read(255, ClipStatus::Text), "last");
  EXPECT_EQ(Read(2, ClipStatus::Empty), "");

  // The file is the clip exchange form, in a private directory.
  std::ifstream in(UnitFile(1), std::ios::binary);
  std::vector<uint8_t> file{std::istreambuf_iterator<char>(in), {}};
  EXPECT_EQ(file, MakeFtxtClip("one again", 9));
  struct stat info {};
  ASSERT_EQ(stat((root_ + "/clips").c_str(), &info), 0);
  EXPECT_EQ(info.st_mode & 0777, 0700u);
}

TEST_F(ClipUnits, UnitsOutsideTheRangeAndBrokenDirectoriesFail) {
  for (int unit : {-1, 256}) {
    EXPECT_FALSE(WriteClipText(unit, "x", 1));
    EXPECT_EQ(Read(unit, ClipStatus::Failed), "");
  }
  ASSERT_TRUE(WriteClipUnit(3, {'F', 'O', 'R', 'M', 0, 0, 0, 4, 'I', 'L', 'B', 'M'}));
  EXPECT_EQ(Read(3, ClipStatus::BadContent), "");
  // A clip that can't be written leaves the old one.
  ASSERT_TRUE(WriteClipText(4, "kept", 4));
  SetClipDirectory(root_ + "/no/such/place");
  EXPECT_FALSE(WriteClipText(4, "lost", 4));
  SetClipDirectory(root_ + "/clips");
  EXPECT_EQ(Read(4, ClipStatus::Text), "kept");
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

// A desktop clipboard that remembers what it was given.
class FakeDesktop : public DesktopClipboard {
 public:
  bool ReadText(std::string& latin1) override {
    latin1 = text;
    return holdsText;
  }
  void WriteText(const std::string& latin1) override {
    text = latin1;
    holdsText = !latin1.empty();
    ++writes;
  }
  std::string text;
  bool holdsText = false;
  int writes = 0;
};

TEST_F(ClipUnits, UnitZeroGoesThroughTheDesktop) {
  FakeDesktop desktop;
  SetDesktopClipboard(&desktop);
  ASSERT_TRUE(WriteClipText(0, "to desktop", 10));
  ASSERT_TRUE(WriteClipText(5, "unit five", 9));
  EXPECT_EQ(desktop.text, "to desktop");
  EXPECT_EQ(desktop.writes, 1);

  desktop.text = std::string("from\0 elsewhere", 15);  // another program copied
  EXPECT_EQ(Read(0, ClipStatus::Text), "from elsewhere");
  EXPECT_EQ(Read(5, ClipStatus::Text), "unit five");

  // A clip that is no text clears the desktop, and unit 0 is its file again.
  ASSERT_TRUE(WriteClipUnit(0, {'F', 'O', 'R', 'M', 0, 0, 0, 4, 'I', 'L', 'B', 'M'}));
  EXPECT_FALSE(desktop.holdsText);
  EXPECT_EQ(Read(0, ClipStatus::BadContent), "");

  SetDesktopClipboard(nullptr);
  ASSERT_TRUE(WriteClipText(0, "file only", 9));
  EXPECT_EQ(desktop.writes, 2);
}

}  // namespace
