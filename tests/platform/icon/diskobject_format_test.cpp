#include <gtest/gtest.h>

#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "platform/icon/diskobject_codec.h"
#include "platform/icon/icon.h"
#include "platform/icon/tooltypes.h"

namespace {

using Bytes = std::vector<uint8_t>;

Bytes Encode(const DiskObject& object) {
  Bytes bytes;
  IconError error = IconError::None;
  EXPECT_TRUE(EncodeDiskObject(object, bytes, error));
  return bytes;
}

uint32_t U32At(const Bytes& bytes, size_t offset) {
  return uint32_t{bytes[offset]} << 24 | uint32_t{bytes[offset + 1]} << 16 |
         uint32_t{bytes[offset + 2]} << 8 | bytes[offset + 3];
}

// The icon a saved text gets: the default project icon with a default tool
// and one WINDOW tool type.
char kTool[] = "/home/ann/Tavrel";
char kWindow[] = "WINDOW=10,20,640,200";
char* kToolTypes[] = {kWindow, nullptr};

Bytes ProjectIconBytes() {
  DiskObject* object = GetDefDiskObject(WBPROJECT);
  EXPECT_NE(object, nullptr);
  object->do_DefaultTool = kTool;
  object->do_ToolTypes = kToolTypes;
  Bytes bytes = Encode(*object);
  FreeDiskObject(object);
  return bytes;
}

// A drawer icon of revision 1: drawer data, the drawer extension after the
// tool window, a single image, several tool types.
Bytes DrawerIconBytes() {
  static uint16_t planes[3] = {0xF00F, 0x0FF0, 0x1234};
  static IconImage image{0, 0, 16, 3, 1, planes, 1, 0, nullptr};
  static DrawerData drawer{{50, 40, 300, 150, 0xFF, 0xFF, 0, 0x100, 90, 40, 0xFFFF, 0xFFFF, 1},
                           -5, 7, 2, 1};
  static char a[] = "ONE=1", b[] = "", c[] = "THREE";
  static char* toolTypes[] = {a, b, c, nullptr};
  static char toolWindow[] = "CON:0/0/400/100";
  DiskObject object{};
  object.do_Magic = WB_DISKMAGIC;
  object.do_Version = WB_DISKVERSION;
  object.do_Gadget.Width = 16;
  object.do_Gadget.Height = 3;
  object.do_Gadget.Flags = GFLG_GADGIMAGE | GFLG_GADGHCOMP;
  object.do_Gadget.UserData = WB_DISKREVISION;
  object.do_Gadget.GadgetRender = &image;
  object.do_Type = WBDRAWER;
  object.do_ToolTypes = toolTypes;
  object.do_CurrentX = 12;
  object.do_CurrentY = NO_ICON_POSITION;
  object.do_DrawerData = &drawer;
  object.do_ToolWindow = toolWindow;
  return Encode(object);
}

TEST(DiskObjectFormat, ProjectIconLayout) {
  Bytes bytes = ProjectIconBytes();
  // Header: magic, version, then the gadget's width and height (20 x 19).
  EXPECT_EQ(U32At(bytes, 0), 0xE3100001u);
  EXPECT_EQ(U32At(bytes, 12), 0x00140013u);
  EXPECT_EQ(bytes[48], WBPROJECT);
  EXPECT_EQ(U32At(bytes, 58), 0x80000000u);  // do_CurrentX
  EXPECT_EQ(U32At(bytes, 74), 4000u);        // do_StackSize
  // Two images of 20 header bytes and 2 planes x 19 rows x 2 words.
  const size_t image = 20 + 2 * 19 * 2 * 2;
  // The first row of the page: 15 pixels of pen 1, in plane 0 only.
  EXPECT_EQ(U32At(bytes, 78 + 20), 0xFFFE0000u);
  EXPECT_EQ(U32At(bytes, 78 + 20 + 19 * 4), 0u);
  // The selected image complements the pens: pen 1 becomes 2, the
  // background 3.
  EXPECT_EQ(U32At(bytes, 78 + image + 20), 0x0001F000u);
  EXPECT_EQ(U32At(bytes, 78 + image + 20 + 19 * 4), 0xFFFFF000u);
  size_t tool = 78 + 2 * image;
  EXPECT_EQ(U32At(bytes, tool), 17u);
  EXPECT_EQ(std::memcmp(&bytes[tool + 4], "/home/ann/Tavrel", 17), 0);
  size_t types = tool + 4 + 17;
  EXPECT_EQ(U32At(bytes, types), 8u);  // (1 entry + 1) * 4
  EXPECT_EQ(U32At(bytes, types + 4), 21u);
  EXPECT_EQ(std::memcmp(&bytes[types + 8], "WINDOW=10,20,640,200", 21), 0);
  EXPECT_EQ(bytes.size(), types + 8 + 21);
}

TEST(DiskObjectFormat, DecodedIconsEncodeToTheSameBytes) {
  for (const Bytes& bytes : {ProjectIconBytes(), DrawerIconBytes()}) {
    IconError error = IconError::None;
    DiskObject* object = DecodeDiskObject(bytes.data(), bytes.size(), error);
    ASSERT_NE(object, nullptr);
    EXPECT_EQ(Encode(*object), bytes);
    FreeDiskObject(object);
  }
}

TEST(DiskObjectFormat, DrawerIconFieldsReadBack) {
  Bytes bytes = DrawerIconBytes();
  IconError error = IconError::None;
  DiskObject* object = DecodeDiskObject(bytes.data(), bytes.size(), error);
  ASSERT_NE(object, nullptr);
  ASSERT_NE(object->do_DrawerData, nullptr);
  const DrawerData& drawer = *object->do_DrawerData;
  EXPECT_EQ(drawer.dd_NewWindow.Width, 300);
  EXPECT_EQ(drawer.dd_NewWindow.Flags, 0x100u);
  EXPECT_EQ(drawer.dd_NewWindow.MaxWidth, 0xFFFF);
  EXPECT_EQ(drawer.dd_CurrentX, -5);
  EXPECT_EQ(drawer.dd_Flags, 2u);
  EXPECT_EQ(drawer.dd_ViewModes, 1);
  EXPECT_EQ(object->do_CurrentY, NO_ICON_POSITION);
  EXPECT_EQ(object->do_DefaultTool, nullptr);
  EXPECT_STREQ(object->do_ToolWindow, "CON:0/0/400/100");
  EXPECT_EQ(object->do_Gadget.SelectRender, nullptr);
  const IconImage* image = object->do_Gadget.GadgetRender;
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->ImageData[2], 0x1234);
  ASSERT_NE(object->do_ToolTypes, nullptr);
  EXPECT_STREQ(object->do_ToolTypes[1], "");
  EXPECT_EQ(object->do_ToolTypes[3], nullptr);
  EXPECT_STREQ(FindToolType(object->do_ToolTypes, "three"), "");
  FreeDiskObject(object);
}

TEST(DiskObjectFormat, EveryTruncationIsRefused) {
  for (const Bytes& bytes : {ProjectIconBytes(), DrawerIconBytes()}) {
    for (size_t length = 0; length < bytes.size(); ++length) {
      Bytes cut(bytes.begin(), bytes.begin() + static_cast<long>(length));
      IconError error = IconError::None;
      DiskObject* object = DecodeDiskObject(cut.data(), cut.size(), error);
      EXPECT_EQ(object, nullptr) << "length " << length;
      EXPECT_EQ(error, IconError::Truncated) << "length " << length;
      FreeDiskObject(object);
    }
  }
}

TEST(DiskObjectFormat, MalformedFieldsAreRefused) {
  struct Case {
    const char* what;
    size_t offset;
    std::vector<uint8_t> patch;
    IconError expected;
  };
  const size_t image = 78;
  const size_t types = 78 + 2 * (20 + 2 * 19 * 2 * 2) + 4 + 17;
  const Case cases[] = {
      {"magic", 0, {0xE3, 0x11}, IconError::BadFormat},
      {"version", 2, {0, 2}, IconError::BadFormat},
      {"type 0", 48, {0}, IconError::BadFormat},
      {"type 9", 48, {9}, IconError::BadFormat},
      {"depth 0", image + 8, {0, 0}, IconError::BadFormat},
      {"depth 9", image + 8, {0, 9}, IconError::BadFormat},
      {"negative width", image + 4, {0x80, 0}, IconError::BadFormat},
      {"huge image", image + 4, {0x7F, 0xFF, 0x7F, 0xFF}, IconError::Truncated},
      {"tool type count 0", types, {0, 0, 0, 0}, IconError::BadFormat},
      {"tool type count not in longs", types, {0, 0, 0, 6}, IconError::BadFormat},
      {"tool type count huge", types, {0xFF, 0xFF, 0xFF, 0xF0}, IconError::Truncated},
      {"string beyond the end", types + 4, {0x7F, 0, 0, 0}, IconError::Truncated},
  };
  for (const Case& c : cases) {
    Bytes bytes = ProjectIconBytes();
    std::copy(c.patch.begin(), c.patch.end(), bytes.begin() + static_cast<long>(c.offset));
    IconError error = IconError::None;
    DiskObject* object = DecodeDiskObject(bytes.data(), bytes.size(), error);
    EXPECT_EQ(object, nullptr) << c.what;
    EXPECT_EQ(error, c.expected) << c.what;
    FreeDiskObject(object);
  }
}

// Random damage never crashes, and whatever is still taken for an icon
// encodes to bytes that decode to the same icon again.
TEST(DiskObjectFormat, RandomByteFlipsAreSafe) {
  std::mt19937 random(20261122);
  for (const Bytes& original : {ProjectIconBytes(), DrawerIconBytes()}) {
    std::uniform_int_distribution<size_t> where(0, original.size() - 1);
    for (int round = 0; round < 3000; ++round) {
      Bytes bytes = original;
      int flips = 1 + round % 4;
      for (int i = 0; i < flips; ++i) bytes[where(random)] ^= static_cast<uint8_t>(1 + random() % 255);
      IconError error = IconError::None;
      DiskObject* object = DecodeDiskObject(bytes.data(), bytes.size(), error);
      if (object == nullptr) {
        EXPECT_NE(error, IconError::None);
        continue;
      }
      Bytes again = Encode(*object);
      DiskObject* reread = DecodeDiskObject(again.data(), again.size(), error);
      ASSERT_NE(reread, nullptr);
      EXPECT_EQ(Encode(*reread), again);
      FreeDiskObject(reread);
      FreeDiskObject(object);
    }
  }
}

TEST(DiskObjectFormat, ObjectsThatCannotBeStoredAreRefused) {
  struct Case {
    const char* what;
    void (*spoil)(DiskObject&);
  };
  const Case cases[] = {
      {"magic", [](DiskObject& o) { o.do_Magic = 0; }},
      {"type", [](DiskObject& o) { o.do_Type = 0; }},
      {"depth", [](DiskObject& o) { o.do_Gadget.SelectRender->Depth = 9; }},
      {"height", [](DiskObject& o) { o.do_Gadget.GadgetRender->Height = -1; }},
  };
  for (const Case& c : cases) {
    DiskObject* spoilt = GetDefDiskObject(WBTOOL);
    c.spoil(*spoilt);
    Bytes bytes;
    IconError error = IconError::None;
    EXPECT_FALSE(EncodeDiskObject(*spoilt, bytes, error)) << c.what;
    EXPECT_EQ(error, IconError::BadObject) << c.what;
    FreeDiskObject(spoilt);
  }
}

}  // namespace
