#include "platform/icon/diskobject_codec.h"

#include <cstring>
#include <memory>
#include <string_view>

#include "platform/utility/big_endian.h"
#include "platform/icon/owned_disk_object.h"

namespace {

constexpr uint32_t kPresent = 1;  // what a non-null pointer is stored as
constexpr int kMaxDepth = 8;

bool Fail(IconError& error, IconError code) {
  error = code;
  return false;
}

DiskObject* Refuse(IconError& error, IconError code) {
  error = code;
  return nullptr;
}

bool ValidType(uint8_t type) { return type >= WBDISK && type <= WBAPPICON; }

bool ValidImage(const IconImage& image) {
  return image.Depth >= 1 && image.Depth <= kMaxDepth && image.Width >= 0 && image.Height >= 0;
}

bool HasDrawerExtension(const DiskObject& object) {
  return object.do_DrawerData != nullptr &&
         (object.do_Gadget.UserData & WB_DISKREVISIONMASK) >= WB_DISKREVISION;
}

// Pointer fields of the header, remembered while the parts they announce
// are read in file order.
struct Presence {
  bool drawer, normalImage, selectImage, defaultTool, toolTypes, toolWindow;
};

void ReadGadget(BigEndianReader& in, IconGadget& gadget, Presence& presence) {
  in.U32();  // NextGadget
  gadget.LeftEdge = in.S16();
  gadget.TopEdge = in.S16();
  gadget.Width = in.S16();
  gadget.Height = in.S16();
  gadget.Flags = in.U16();
  gadget.Activation = in.U16();
  gadget.GadgetType = in.U16();
  presence.normalImage = in.U32() != 0;
  presence.selectImage = in.U32() != 0;
  in.U32();  // GadgetText
  gadget.MutualExclude = in.S32();
  in.U32();  // SpecialInfo
  gadget.GadgetID = in.U16();
  gadget.UserData = in.U32();
}

void ReadDrawerWindow(BigEndianReader& in, DrawerWindow& window) {
  window.LeftEdge = in.S16();
  window.TopEdge = in.S16();
  window.Width = in.S16();
  window.Height = in.S16();
  window.DetailPen = in.U8();
  window.BlockPen = in.U8();
  window.IDCMPFlags = in.U32();
  window.Flags = in.U32();
  in.U32();  // FirstGadget
  in.U32();  // CheckMark
  in.U32();  // Title
  in.U32();  // Screen
  in.U32();  // BitMap
  window.MinWidth = in.S16();
  window.MinHeight = in.S16();
  window.MaxWidth = in.U16();
  window.MaxHeight = in.U16();
  window.Type = in.U16();
}

bool ReadImage(BigEndianReader& in, OwnedDiskObject& object, int which, IconError& error) {
  IconImage image{};
  image.LeftEdge = in.S16();
  image.TopEdge = in.S16();
  image.Width = in.S16();
  image.Height = in.S16();
  image.Depth = in.S16();
  bool hasData = in.U32() != 0;
  image.PlanePick = in.U8();
  image.PlaneOnOff = in.U8();
  in.U32();  // NextImage
  if (in.failed()) return Fail(error, IconError::Truncated);
  if (!ValidImage(image)) return Fail(error, IconError::BadFormat);
  std::vector<uint16_t> planes;
  if (hasData) {
    size_t words = ImageWordCount(image);
    if (words > in.left() / 2) return Fail(error, IconError::Truncated);
    planes.resize(words);
    for (uint16_t& word : planes) word = in.U16();
  }
  object.KeepImage(which, image, std::move(planes));
  return true;
}

// A length-prefixed string; the length counts the terminating zero, which
// is not taken over (the copy is terminated anew).
bool ReadString(BigEndianReader& in, std::string_view& text, IconError& error) {
  uint32_t length = in.U32();
  if (in.failed() || length > in.left()) return Fail(error, IconError::Truncated);
  text = in.Bytes(length);
  if (!text.empty() && text.back() == '\0') text.remove_suffix(1);
  return true;
}

bool ReadToolTypes(BigEndianReader& in, OwnedDiskObject& object, IconError& error) {
  uint32_t count = in.U32();
  if (in.failed()) return Fail(error, IconError::Truncated);
  // Stored as (entries + 1) * 4, the size of the pointer array.
  if (count < 4 || count % 4 != 0) return Fail(error, IconError::BadFormat);
  size_t entries = count / 4 - 1;
  if (entries > in.left() / 4) return Fail(error, IconError::Truncated);
  std::vector<std::string_view> texts(entries);
  for (std::string_view& text : texts) {
    if (!ReadString(in, text, error)) return false;
  }
  object.KeepToolTypes(texts);
  return true;
}

void WriteGadget(std::vector<uint8_t>& out, const IconGadget& gadget) {
  PutU32(out, 0);  // NextGadget
  PutU16(out, static_cast<uint16_t>(gadget.LeftEdge));
  PutU16(out, static_cast<uint16_t>(gadget.TopEdge));
  PutU16(out, static_cast<uint16_t>(gadget.Width));
  PutU16(out, static_cast<uint16_t>(gadget.Height));
  PutU16(out, gadget.Flags);
  PutU16(out, gadget.Activation);
  PutU16(out, gadget.GadgetType);
  PutU32(out, gadget.GadgetRender != nullptr ? kPresent : 0);
  PutU32(out, gadget.SelectRender != nullptr ? kPresent : 0);
  PutU32(out, 0);  // GadgetText
  PutU32(out, static_cast<uint32_t>(gadget.MutualExclude));
  PutU32(out, 0);  // SpecialInfo
  PutU16(out, gadget.GadgetID);
  PutU32(out, gadget.UserData);
}

void WriteDrawerWindow(std::vector<uint8_t>& out, const DrawerWindow& window) {
  PutU16(out, static_cast<uint16_t>(window.LeftEdge));
  PutU16(out, static_cast<uint16_t>(window.TopEdge));
  PutU16(out, static_cast<uint16_t>(window.Width));
  PutU16(out, static_cast<uint16_t>(window.Height));
  PutU8(out, window.DetailPen);
  PutU8(out, window.BlockPen);
  PutU32(out, window.IDCMPFlags);
  PutU32(out, window.Flags);
  for (int pointer = 0; pointer < 5; ++pointer) PutU32(out, 0);  // FirstGadget .. BitMap
  PutU16(out, static_cast<uint16_t>(window.MinWidth));
  PutU16(out, static_cast<uint16_t>(window.MinHeight));
  PutU16(out, window.MaxWidth);
  PutU16(out, window.MaxHeight);
  PutU16(out, window.Type);
}

void WriteImage(std::vector<uint8_t>& out, const IconImage& image) {
  PutU16(out, static_cast<uint16_t>(image.LeftEdge));
  PutU16(out, static_cast<uint16_t>(image.TopEdge));
  PutU16(out, static_cast<uint16_t>(image.Width));
  PutU16(out, static_cast<uint16_t>(image.Height));
  PutU16(out, static_cast<uint16_t>(image.Depth));
  PutU32(out, image.ImageData != nullptr ? kPresent : 0);
  PutU8(out, image.PlanePick);
  PutU8(out, image.PlaneOnOff);
  PutU32(out, 0);  // NextImage
  if (image.ImageData == nullptr) return;
  size_t words = ImageWordCount(image);
  for (size_t i = 0; i < words; ++i) PutU16(out, image.ImageData[i]);
}

void WriteString(std::vector<uint8_t>& out, const char* text) {
  size_t length = std::strlen(text) + 1;
  PutU32(out, static_cast<uint32_t>(length));
  out.insert(out.end(), text, text + length);
}

}  // namespace

DiskObject* DecodeDiskObject(const uint8_t* data, size_t size, IconError& error) {
  BigEndianReader in(data, size);
  auto object = std::make_unique<OwnedDiskObject>();
  Presence presence{};
  object->do_Magic = in.U16();
  object->do_Version = in.U16();
  ReadGadget(in, object->do_Gadget, presence);
  object->do_Type = in.U8();
  in.U8();  // padding
  presence.defaultTool = in.U32() != 0;
  presence.toolTypes = in.U32() != 0;
  object->do_CurrentX = in.S32();
  object->do_CurrentY = in.S32();
  presence.drawer = in.U32() != 0;
  presence.toolWindow = in.U32() != 0;
  object->do_StackSize = in.S32();
  if (in.failed()) return Refuse(error, IconError::Truncated);
  if (object->do_Magic != WB_DISKMAGIC || object->do_Version != WB_DISKVERSION ||
      !ValidType(object->do_Type)) {
    return Refuse(error, IconError::BadFormat);
  }

  DrawerData drawer{};
  if (presence.drawer) {
    ReadDrawerWindow(in, drawer.dd_NewWindow);
    drawer.dd_CurrentX = in.S32();
    drawer.dd_CurrentY = in.S32();
    if (in.failed()) return Refuse(error, IconError::Truncated);
    object->KeepDrawer(drawer);
  }
  if (presence.normalImage && !ReadImage(in, *object, 0, error)) return nullptr;
  if (presence.selectImage && !ReadImage(in, *object, 1, error)) return nullptr;
  std::string_view text;
  if (presence.defaultTool) {
    if (!ReadString(in, text, error)) return nullptr;
    object->do_DefaultTool = object->KeepString(text);
  }
  if (presence.toolTypes && !ReadToolTypes(in, *object, error)) return nullptr;
  if (presence.toolWindow) {
    if (!ReadString(in, text, error)) return nullptr;
    object->do_ToolWindow = object->KeepString(text);
  }
  if (HasDrawerExtension(*object)) {
    object->do_DrawerData->dd_Flags = in.U32();
    object->do_DrawerData->dd_ViewModes = in.U16();
    if (in.failed()) return Refuse(error, IconError::Truncated);
  }
  return object.release();
}

bool EncodeDiskObject(const DiskObject& object, std::vector<uint8_t>& out, IconError& error) {
  const IconGadget& gadget = object.do_Gadget;
  if (object.do_Magic != WB_DISKMAGIC || object.do_Version != WB_DISKVERSION ||
      !ValidType(object.do_Type) ||
      (gadget.GadgetRender != nullptr && !ValidImage(*gadget.GadgetRender)) ||
      (gadget.SelectRender != nullptr && !ValidImage(*gadget.SelectRender))) {
    return Fail(error, IconError::BadObject);
  }
  PutU16(out, object.do_Magic);
  PutU16(out, object.do_Version);
  WriteGadget(out, gadget);
  PutU8(out, object.do_Type);
  PutU8(out, 0);
  PutU32(out, object.do_DefaultTool != nullptr ? kPresent : 0);
  PutU32(out, object.do_ToolTypes != nullptr ? kPresent : 0);
  PutU32(out, static_cast<uint32_t>(object.do_CurrentX));
  PutU32(out, static_cast<uint32_t>(object.do_CurrentY));
  PutU32(out, object.do_DrawerData != nullptr ? kPresent : 0);
  PutU32(out, object.do_ToolWindow != nullptr ? kPresent : 0);
  PutU32(out, static_cast<uint32_t>(object.do_StackSize));
  if (object.do_DrawerData != nullptr) {
    WriteDrawerWindow(out, object.do_DrawerData->dd_NewWindow);
    PutU32(out, static_cast<uint32_t>(object.do_DrawerData->dd_CurrentX));
    PutU32(out, static_cast<uint32_t>(object.do_DrawerData->dd_CurrentY));
  }
  if (gadget.GadgetRender != nullptr) WriteImage(out, *gadget.GadgetRender);
  if (gadget.SelectRender != nullptr) WriteImage(out, *gadget.SelectRender);
  if (object.do_DefaultTool != nullptr) WriteString(out, object.do_DefaultTool);
  if (object.do_ToolTypes != nullptr) {
    uint32_t entries = 0;
    while (object.do_ToolTypes[entries] != nullptr) ++entries;
    PutU32(out, (entries + 1) * 4);
    for (uint32_t i = 0; i < entries; ++i) WriteString(out, object.do_ToolTypes[i]);
  }
  if (object.do_ToolWindow != nullptr) WriteString(out, object.do_ToolWindow);
  if (HasDrawerExtension(object)) {
    PutU32(out, object.do_DrawerData->dd_Flags);
    PutU16(out, object.do_DrawerData->dd_ViewModes);
  }
  return true;
}
