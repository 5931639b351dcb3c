#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <vector>

#include "platform/icon/diskobject_codec.h"
#include "platform/icon/icon.h"

namespace {

using Bytes = std::vector<uint8_t>;

Bytes Encode(const DiskObject& object) {
  Bytes bytes;
  IconError error = IconError::None;
  EXPECT_TRUE(EncodeDiskObject(object, bytes, error));
  return bytes;
}

uint32_t U32At(const Bytes& bytes, size_t at) {
  return uint32_t{bytes[at]} << 24 | uint32_t{bytes[at + 1]} << 16 | uint32_t{bytes[at + 2]} << 8 |
         bytes[at + 3];
}

// The icon of a saved text: the project icon, a default tool, a WINDOW tool type.
Bytes ProjectIcon() {
  static char tool[] = "/home/ann/Tavrel", window[] = "WINDOW=10,20,640,200";
  static char* toolTypes[] = {window, nullptr};
  DiskObject* object = GetDefDiskObject(WBPROJECT);
  object->do_DefaultTool = tool;
  object->do_ToolTypes = toolTypes;
  Bytes bytes = Encode(*object);
  FreeDiskObject(object);
  return bytes;
}

// A drawer: drawer data, a tool window and, as the built-in icons are of
// revision 1, the drawer extension at the end.
Bytes DrawerIcon() {
  static DrawerData drawer{{50, 40, 300, 150, 1, 2, 0, 0x100, 90, 40, 0xFFFF, 0xFFFF, 1}, -5, 7, 2, 1};
  static char toolWindow[] = "CON:0/0/400/100";
  DiskObject* object = GetDefDiskObject(WBTOOL);
  object->do_Type = WBDRAWER;
  object->do_DrawerData = &drawer;
  object->do_ToolWindow = toolWindow;
  Bytes bytes = Encode(*object);
  FreeDiskObject(object);
  return bytes;
}

TEST(DiskObjectFormat, ProjectIconLayout) {
  Bytes bytes = ProjectIcon();
  EXPECT_EQ(U32At(bytes, 0), 0xE3100001u);   // magic, version
  EXPECT_EQ(U32At(bytes, 12), 0x00140013u);  // gadget 20 x 19
  EXPECT_EQ(bytes[48], WBPROJECT);
  EXPECT_EQ(U32At(bytes, 58), 0x80000000u);  // do_CurrentX
  EXPECT_EQ(U32At(bytes, 74), 4000u);        // do_StackSize
  // Two images: 20 header bytes, 2 planes of 19 rows of 2 words. The top
  // row of the page is 15 pixels of pen 1; selected, pen 1 is 2 and the
  // background 3.
  const size_t image = 20 + 2 * 19 * 2 * 2;
  EXPECT_EQ(U32At(bytes, 78 + 20), 0xFFFE0000u);
  EXPECT_EQ(U32At(bytes, 78 + image + 20 + 19 * 4), 0xFFFFF000u);
  const size_t tool = 78 + 2 * image, types = tool + 4 + 17;
  EXPECT_EQ(U32At(bytes, tool), 17u);
  EXPECT_EQ(std::memcmp(&bytes[tool + 4], "/home/ann/Tavrel", 17), 0);
  EXPECT_EQ(U32At(bytes, types), 8u);  // (1 entry + 1) * 4
  EXPECT_EQ(U32At(bytes, types + 4), 21u);
  EXPECT_EQ(std::memcmp(&bytes[types + 8], "WINDOW=10,20,640,200", 21), 0);
  EXPECT_EQ(bytes.size(), types + 8 + 21);
}

TEST(DiskObjectFormat, DecodedIconsEncodeToTheSameBytes) {
  for (const Bytes& bytes : {ProjectIcon(), DrawerIcon()}) {
    IconError error = IconError::None;
    DiskObject* object = DecodeDiskObject(bytes.data(), bytes.size(), error);
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(Encode(*object), bytes);
    FreeDiskObject(object);
  }
}

TEST(DiskObjectFormat, DamagedIconsAreRefused) {
  struct Case {
    const char* what;
    size_t at;
    Bytes patch;
    IconError expected;
  };
  const size_t image = 78, types = 78 + 2 * (20 + 2 * 19 * 2 * 2) + 4 + 17;
  const Case cases[] = {
      {"magic", 0, {0xE3, 0x11}, IconError::BadFormat},
      {"type 9", 48, {9}, IconError::BadFormat},
      {"depth 9", image + 8, {0, 9}, IconError::BadFormat},
      {"huge image", image + 4, {0x7F, 0xFF, 0x7F, 0xFF}, IconError::Truncated},
      {"tool type count not in longs", types, {0, 0, 0, 6}, IconError::BadFormat},
      {"string beyond the end", types + 4, {0x7F, 0, 0, 0}, IconError::Truncated},
  };
  for (const Case& c : cases) {
    Bytes bytes = ProjectIcon();
    std::copy(c.patch.begin(), c.patch.end(), bytes.begin() + static_cast<long>(c.at));
    IconError error = IconError::None;
    EXPECT_EQ(DecodeDiskObject(bytes.data(), bytes.size(), error), nullptr) << c.what;
    EXPECT_EQ(error, c.expected) << c.what;
  }
  for (const Bytes& bytes : {ProjectIcon(), DrawerIcon()}) {
    for (size_t length = 0; length < bytes.size(); ++length) {
      IconError error = IconError::None;
      EXPECT_EQ(DecodeDiskObject(bytes.data(), length, error), nullptr) << length;
      EXPECT_EQ(error, IconError::Truncated) << length;
    }
  }
}

// Random damage never crashes, and what is still taken for an icon
// encodes to bytes that decode to the same icon again.
TEST(DiskObjectFormat, RandomByteFlipsAreSafe) {
  std::mt19937 random(20261122);
  for (const Bytes& original : {ProjectIcon(), DrawerIcon()}) {
    std::uniform_int_distribution<size_t> where(0, original.size() - 1);
    for (int round = 0; round < 3000; ++round) {
      Bytes bytes = original;
      for (int i = 0; i <= round % 4; ++i) bytes[where(random)] ^= static_cast<uint8_t>(1 + random() % 255);
      IconError error = IconError::None;
      DiskObject* object = DecodeDiskObject(bytes.data(), bytes.size(), error);
      if (object == nullptr) continue;
      Bytes again = Encode(*object);
      DiskObject* reread = DecodeDiskObject(again.data(), again.size(), error);
      ASSERT_NE(reread, nullptr);
      EXPECT_EQ(Encode(*reread), again);
      FreeDiskObject(reread);
      FreeDiskObject(object);
    }
  }
}

}  // namespace
