// The clip directory and the places above it must be the user's own; a
// unit must be a regular file. Anything else is refused, never waited on.
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <unistd.h>

#include <cstdlib>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "clip_directory_fixture.h"
#include "platform/clip/clip_text.h"
#include "platform/clip/clip_units.h"
#include "platform/dos/errors.h"

namespace {

// Sets or unsets an environment variable for the life of the guard.
class EnvSet {
 public:
  EnvSet(const char* name, const char* value) : name_(name) {
    if (const char* old = getenv(name)) old_ = old;
    if (value) setenv(name, value, 1);
    else unsetenv(name);
  }
  ~EnvSet() {
    if (old_) setenv(name_, old_->c_str(), 1);
    else unsetenv(name_);
  }

 private:
  const char* name_;
  std::optional<std::string> old_;
};

using ClipPlaces = ClipDirectoryTest;

void MakeDirectory(const std::string& path, mode_t mode) {
  std::filesystem::create_directories(path);
  ASSERT_EQ(chmod(path.c_str(), mode), 0) << path;
}

TEST_F(ClipPlaces, PlacesOthersCanReachAreRefused) {
  const std::string uid = std::to_string(getuid());
  const struct {
    const char* name;
    bool needsRoot;
    std::function<void(const std::string& root)> prepare;
  } cases[] = {
      {"WorldWritableClips", false, [](const std::string& root) { MakeDirectory(root + "/clips", 0777); }},
      {"GroupWritableClips", false, [](const std::string& root) { MakeDirectory(root + "/clips", 0770); }},
      {"ClipsOfAnotherUser", true,
       [](const std::string& root) {
         MakeDirectory(root + "/clips", 0700);
         ASSERT_EQ(chown((root + "/clips").c_str(), 4321, 4321), 0);
       }},
      {"ClipsALinkToElsewhere", false,
       [](const std::string& root) {
         MakeDirectory(root + "/elsewhere", 0700);
         ASSERT_EQ(symlink("elsewhere", (root + "/clips").c_str()), 0);
       }},
      {"RuntimeDirectoryWorldWritable", false,
       [](const std::string& root) {
         setenv("XDG_RUNTIME_DIR", root.c_str(), 1);
         SetClipDirectory("");
         MakeDirectory(root + "/tavrel", 0777);
       }},
      {"FallbackOfAnotherUser", true,
       [uid](const std::string& root) {
         unsetenv("XDG_RUNTIME_DIR");
         setenv("TMPDIR", root.c_str(), 1);
         SetClipDirectory("");
         MakeDirectory(root + "/tavrel-" + uid + "/clips", 0700);
         ASSERT_EQ(chown((root + "/tavrel-" + uid).c_str(), 4321, 4321), 0);
       }},
  };
  for (const auto& c : cases) {
    SCOPED_TRACE(c.name);
    if (c.needsRoot && geteuid() != 0) continue;
    EnvSet runtime("XDG_RUNTIME_DIR", getenv("XDG_RUNTIME_DIR"));
    EnvSet temp("TMPDIR", getenv("TMPDIR"));
    TempDir place;
    SetClipDirectory(place.path + "/clips");
    c.prepare(place.path);
    SetIoErr(0);
    EXPECT_FALSE(WriteClipText(0, "secret", 6));
    EXPECT_EQ(IoErr(), ERROR_PLACE_NOT_PRIVATE);
    std::string text;
    SetIoErr(0);
    EXPECT_EQ(ReadClipText(0, text), ClipStatus::Failed);
    EXPECT_EQ(IoErr(), ERROR_PLACE_NOT_PRIVATE);
    SetClipDirectory(root_ + "/clips");
    ASSERT_EQ(system(("chmod -R u+rwx '" + place.path + "'").c_str()), 0);
  }
}

// A FIFO as a unit would block a reader until someone writes to it.
TEST_F(ClipPlaces, UnitThatIsNoFileIsRefusedWithoutBlocking) {
  ASSERT_TRUE(WriteClipText(1, "one", 3));
  ASSERT_EQ(mkfifo((root_ + "/clips/3").c_str(), 0600), 0);
  MakeDirectory(root_ + "/clips/4", 0700);
  for (int unit : {3, 4}) {
    std::string text;
    SetIoErr(0);
    EXPECT_EQ(ReadClipText(unit, text), ClipStatus::Failed) << unit;
    EXPECT_EQ(IoErr(), ERROR_OBJECT_WRONG_TYPE) << unit;
  }
  std::string text;
  EXPECT_EQ(ReadClipText(1, text), ClipStatus::Text);
  EXPECT_EQ(text, "one");
}

}  // namespace
