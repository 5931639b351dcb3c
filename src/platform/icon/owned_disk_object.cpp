#include "platform/icon/owned_disk_object.h"

#include <cstring>

OwnedDiskObject::OwnedDiskObject() : DiskObject{}, images_{}, drawer_{} {
  do_Magic = WB_DISKMAGIC;
  do_Version = WB_DISKVERSION;
}

char* OwnedDiskObject::KeepString(std::string_view text) {
  auto copy = std::make_unique<char[]>(text.size() + 1);
  std::memcpy(copy.get(), text.data(), text.size());
  copy[text.size()] = '\0';
  strings_.push_back(std::move(copy));
  return strings_.back().get();
}

void OwnedDiskObject::KeepToolTypes(const std::vector<std::string_view>& entries) {
  toolTypes_.clear();
  for (std::string_view entry : entries) toolTypes_.push_back(KeepString(entry));
  toolTypes_.push_back(nullptr);
  do_ToolTypes = toolTypes_.data();
}

void OwnedDiskObject::KeepImage(int which, const IconImage& image, std::vector<uint16_t> planes) {
  planes_[which] = std::move(planes);
  images_[which] = image;
  images_[which].ImageData = planes_[which].empty() ? nullptr : planes_[which].data();
  images_[which].NextImage = nullptr;
  (which == 0 ? do_Gadget.GadgetRender : do_Gadget.SelectRender) = &images_[which];
}

void OwnedDiskObject::KeepDrawer(const DrawerData& drawer) {
  drawer_ = drawer;
  do_DrawerData = &drawer_;
}

size_t ImageWordCount(const IconImage& image) {
  if (image.Width <= 0 || image.Height <= 0 || image.Depth <= 0) return 0;
  size_t wordsPerRow = (static_cast<size_t>(image.Width) + 15) / 16;
  return wordsPerRow * static_cast<size_t>(image.Height) * static_cast<size_t>(image.Depth);
}
