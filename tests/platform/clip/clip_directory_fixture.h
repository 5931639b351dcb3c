#pragma once
// A fresh clip directory for each test, with no desktop clipboard installed.
#include <gtest/gtest.h>

#include <string>

#include "platform/clip/clip_units.h"
#include "platform/clip/desktop_clipboard.h"
#include "temp_dir.h"

class ClipDirectoryTest : public testing::Test {
 protected:
  void SetUp() override {
    // A directory that does not exist yet: the first write makes it.
    SetClipDirectory(root_ + "/clips");
    SetDesktopClipboard(nullptr);
  }
  void TearDown() override {
    SetDesktopClipboard(nullptr);
    SetClipDirectory("");
  }

  TempDir temp_;
  std::string root_ = temp_.path;
};
