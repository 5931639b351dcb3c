#pragma once
// The allocation behind every DiskObject this layer hands out: the object
// itself followed by everything its fields point at. FreeDiskObject deletes
// it whole, so fields a caller re-pointed are never freed through.
#include <memory>
#include <string_view>
#include <vector>

#include "platform/icon/icon.h"

struct OwnedDiskObject : DiskObject {
  OwnedDiskObject();
  // Fields point into the object itself: it never moves.
  OwnedDiskObject(const OwnedDiskObject&) = delete;
  OwnedDiskObject& operator=(const OwnedDiskObject&) = delete;

  // A zero-terminated copy of `text` that lives as long as the object.
  char* KeepString(std::string_view text);
  // Sets do_ToolTypes to a null-terminated array of copies of `entries`.
  void KeepToolTypes(const std::vector<std::string_view>& entries);
  // Attaches `image` with the planes `planes` as normal (0) or selected (1)
  // image.
  void KeepImage(int which, const IconImage& image, std::vector<uint16_t> planes);
  // Sets do_DrawerData to a copy of `drawer`.
  void KeepDrawer(const DrawerData& drawer);

 private:
  std::vector<std::unique_ptr<char[]>> strings_;
  std::vector<char*> toolTypes_;
  IconImage images_[2];
  std::vector<uint16_t> planes_[2];
  DrawerData drawer_;
};

// The number of 16-bit words one image's data takes, all planes together.
size_t ImageWordCount(const IconImage& image);
