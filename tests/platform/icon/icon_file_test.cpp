#include <gtest/gtest.h>

#include <fstream>
#include <iterator>
#include <string>

#include "platform/icon/icon.h"
#include "platform/icon/tooltypes.h"
#include "temp_dir.h"

namespace {

class IconFileTest : public testing::Test {
 protected:
  static std::string Bytes(const std::string& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }
  TempDir temp_;
  std::string dir_ = temp_.path;
};

TEST_F(IconFileTest, SavedIconReadsBackAndWritesTheSameBytes) {
  DiskObject* object = GetDefDiskObject(WBPROJECT);
  char window[] = "WINDOW=0,1,640,199";
  char* toolTypes[] = {window, nullptr};
  object->do_ToolTypes = toolTypes;
  std::string name = dir_ + "/notes.txt", copy = dir_ + "/copy";
  ASSERT_TRUE(PutDiskObject(name.c_str(), object));
  FreeDiskObject(object);
  DiskObject* read = GetDiskObject(name.c_str());
  ASSERT_NE(read, nullptr);
  EXPECT_STREQ(FindToolType(read->do_ToolTypes, "WINDOW"), "0,1,640,199");
  ASSERT_TRUE(PutDiskObject(copy.c_str(), read));
  EXPECT_EQ(Bytes(copy + ".info"), Bytes(name + ".info"));
  FreeDiskObject(read);
}

TEST_F(IconFileTest, FailuresGiveNullAndAnError) {
  EXPECT_EQ(GetDiskObject((dir_ + "/missing").c_str()), nullptr);
  EXPECT_EQ(IconErr(), IconError::NotFound);
  std::ofstream(dir_ + "/text.info") << std::string(100, 'x');
  EXPECT_EQ(GetDiskObject((dir_ + "/text").c_str()), nullptr);
  EXPECT_EQ(IconErr(), IconError::BadFormat);
  DiskObject* object = GetDefDiskObject(WBTOOL);
  object->do_Type = 0;  // can't be stored
  EXPECT_FALSE(PutDiskObject((dir_ + "/text").c_str(), object));
  EXPECT_EQ(IconErr(), IconError::BadObject);
  FreeDiskObject(object);
}

}  // namespace
