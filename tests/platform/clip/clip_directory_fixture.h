#pragma once
// A fresh clip directory for each test, with no desktop clipboard installed.
#include <gtest/gtest.h>
#include <stdlib.h>

#include <cstdlib>
#include <string>

#include "platform/clip/clip_units.h"
#include "platform/clip/desktop_clipboard.h"

class ClipDirectoryTest : public testing::Test {
 protected:
  void SetUp() override {
    char pattern[] = "/tmp/tavrel-clips-XXXXXX";
    ASSERT_NE(mkdtemp(pattern), nullptr);
    root_ = pattern;
    // A directory that does not exist yet: the first write makes it.
    SetClipDirectory(root_ + "/clips");
    SetDesktopClipboard(nullptr);
  }
  void TearDown() override {
    SetDesktopClipboard(nullptr);
    SetClipDirectory("");
    std::system(("rm -rf " + root_).c_str());
  }

  std::string root_;
};
