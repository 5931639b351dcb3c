#include <gtest/gtest.h>
#include <dirent.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <fstream>
#include <iterator>
#include <string>
#include <vector>

#include "platform/icon/icon.h"
#include "platform/icon/tooltypes.h"

namespace {

class IconFileTest : public testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/tavrel-icon-XXXXXX";
    ASSERT_NE(mkdtemp(pattern), nullptr);
    dir_ = pattern;
  }
  void TearDown() override { std::system(("rm -rf " + dir_).c_str()); }

  std::string Path(const char* name) const { return dir_ + "/" + name; }

  std::string FileBytes(const std::string& path) const {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), {}};
  }

  size_t EntryCount() const {
    size_t count = 0;
    DIR* dir = opendir(dir_.c_str());
    while (dirent* entry = readdir(dir)) count += entry->d_name[0] != '.';
    closedir(dir);
    return count;
  }

  std::string dir_;
};

TEST_F(IconFileTest, SavedIconReadsBackWithItsToolTypes) {
  DiskObject* object = GetDefDiskObject(WBPROJECT);
  ASSERT_NE(object, nullptr);
  char tool[] = "/usr/bin/Tavrel";
  char window[] = "WINDOW=0,1,640,199";
  char* toolTypes[] = {window, nullptr};
  object->do_DefaultTool = tool;
  object->do_ToolTypes = toolTypes;
  std::string name = Path("notes.txt");
  ASSERT_TRUE(PutDiskObject(name.c_str(), object));
  FreeDiskObject(object);

  DiskObject* read = GetDiskObject(name.c_str());
  ASSERT_NE(read, nullptr);
  EXPECT_EQ(read->do_Type, WBPROJECT);
  EXPECT_STREQ(read->do_DefaultTool, "/usr/bin/Tavrel");
  EXPECT_STREQ(FindToolType(read->do_ToolTypes, "WINDOW"), "0,1,640,199");
  EXPECT_EQ(read->do_StackSize, 4000);
  EXPECT_EQ(read->do_CurrentX, NO_ICON_POSITION);

  // Written again under another name, the file is the same byte for byte.
  std::string copy = Path("copy");
  ASSERT_TRUE(PutDiskObject(copy.c_str(), read));
  FreeDiskObject(read);
  EXPECT_EQ(FileBytes(copy + ".info"), FileBytes(name + ".info"));
  EXPECT_EQ(EntryCount(), 2u);  // no temporary file left behind
}

TEST_F(IconFileTest, FailuresGiveNullAndAnError) {
  EXPECT_EQ(GetDiskObject(Path("missing").c_str()), nullptr);
  EXPECT_EQ(IconErr(), IconError::NotFound);

  std::ofstream(Path("text.info"), std::ios::binary) << std::string(100, 'x');
  EXPECT_EQ(GetDiskObject(Path("text").c_str()), nullptr);
  EXPECT_EQ(IconErr(), IconError::BadFormat);

  ASSERT_EQ(mkdir(Path("drawer.info").c_str(), 0700), 0);
  EXPECT_EQ(GetDiskObject(Path("drawer").c_str()), nullptr);
  EXPECT_EQ(IconErr(), IconError::ReadFailed);

  DiskObject* object = GetDefDiskObject(WBTOOL);
  ASSERT_NE(object, nullptr);
  EXPECT_FALSE(PutDiskObject(Path("no/such/dir/file").c_str(), object));
  EXPECT_EQ(IconErr(), IconError::WriteFailed);
  FreeDiskObject(object);

  EXPECT_EQ(GetDefDiskObject(WBDRAWER), nullptr);
  EXPECT_EQ(IconErr(), IconError::UnknownType);
}

TEST_F(IconFileTest, ReplacingAnIconKeepsTheOldOneUntilTheNewIsWhole) {
  DiskObject* object = GetDefDiskObject(WBTOOL);
  ASSERT_NE(object, nullptr);
  std::string name = Path("tool");
  ASSERT_TRUE(PutDiskObject(name.c_str(), object));
  std::string before = FileBytes(name + ".info");
  object->do_Type = 0;  // can't be stored: the old icon stays
  EXPECT_FALSE(PutDiskObject(name.c_str(), object));
  EXPECT_EQ(FileBytes(name + ".info"), before);
  FreeDiskObject(object);
}

}  // namespace
