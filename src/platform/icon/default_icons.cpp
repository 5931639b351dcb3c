// The built-in icons, drawn here as pictures of pen numbers: '.' is pen 0
// (the background), '1' black, '2' white, '3' the accent colour. Two
// bitplanes hold them; the selected image is the normal one with every pen
// complemented, as a highlighted icon looks.
#include <cstring>
#include <memory>
#include <vector>

#include "platform/icon/icon.h"
#include "platform/icon/icon_errors.h"
#include "platform/icon/owned_disk_object.h"

namespace {

constexpr int kDepth = 2;
constexpr int32_t kDefaultStack = 4000;

// A sheet of paper with its top right corner folded over, lines of text on it.
constexpr const char* kProjectPicture[] = {
    "111111111111111.....",
    "1222222222222211....",
    "12222222222222121...",
    "123333333332221221..",
    "1222222222222212221.",
    "12333333333322111111",
    "12222222222222222221",
    "12333333333333332221",
    "12222222222222222221",
    "12333333333333222221",
    "12222222222222222221",
    "12333333333333333221",
    "12222222222222222221",
    "12333333333322222221",
    "12222222222222222221",
    "12333333333333333221",
    "12222222222222222221",
    "12222222222222222221",
    "11111111111111111111",
};

// A window with a title bar and a caret in its text, for programs.
constexpr const char* kToolPicture[] = {
    "1111111111111111111111",
    "1333333333333333333331",
    "1111111111111111111111",
    "1222222222222222222221",
    "1233333333333332222221",
    "1222222222222222222221",
    "1233333333333333333221",
    "1222222222222222222221",
    "1233333333122222222221",
    "1222222222122222222221",
    "1222222222222222222221",
    "1111111111111111111111",
};

template <size_t Rows>
IconImage PictureImage(const char* const (&picture)[Rows], std::vector<uint16_t>& planes,
                       bool complement) {
  IconImage image{};
  image.Width = static_cast<int16_t>(std::strlen(picture[0]));
  image.Height = static_cast<int16_t>(Rows);
  image.Depth = kDepth;
  image.PlanePick = (1 << kDepth) - 1;
  size_t wordsPerRow = (static_cast<size_t>(image.Width) + 15) / 16;
  size_t planeWords = wordsPerRow * Rows;
  planes.assign(planeWords * kDepth, 0);
  for (size_t y = 0; y < Rows; ++y) {
    for (int x = 0; x < image.Width; ++x) {
      char c = picture[y][x];
      int pen = c >= '1' && c <= '3' ? c - '0' : 0;
      if (complement) pen ^= (1 << kDepth) - 1;
      uint16_t bit = static_cast<uint16_t>(0x8000u >> (x % 16));
      for (int plane = 0; plane < kDepth; ++plane) {
        if (pen & (1 << plane)) planes[plane * planeWords + y * wordsPerRow + x / 16] |= bit;
      }
    }
  }
  return image;
}

template <size_t Rows>
DiskObject* MakeDefault(uint8_t type, const char* const (&picture)[Rows]) {
  auto object = std::make_unique<OwnedDiskObject>();
  for (int which = 0; which < 2; ++which) {
    std::vector<uint16_t> planes;
    IconImage image = PictureImage(picture, planes, which == 1);
    object->KeepImage(which, image, std::move(planes));
  }
  IconGadget& gadget = object->do_Gadget;
  gadget.Width = object->do_Gadget.GadgetRender->Width;
  gadget.Height = object->do_Gadget.GadgetRender->Height;
  gadget.Flags = GFLG_GADGIMAGE | GFLG_GADGHIMAGE;
  gadget.Activation = GACT_RELVERIFY | GACT_IMMEDIATE;
  gadget.GadgetType = GTYP_BOOLGADGET;
  gadget.UserData = WB_DISKREVISION;
  object->do_Type = type;
  object->do_CurrentX = NO_ICON_POSITION;
  object->do_CurrentY = NO_ICON_POSITION;
  object->do_StackSize = kDefaultStack;
  return object.release();
}

}  // namespace

DiskObject* GetDefDiskObject(uint8_t type) {
  switch (type) {
    case WBPROJECT: return MakeDefault(type, kProjectPicture);
    case WBTOOL: return MakeDefault(type, kToolPicture);
    default: break;
  }
  SetIconErr(IconError::UnknownType);
  return nullptr;
}
