#pragma once
// Icons: ".info" files in the DiskObject format, read for their tool types
// and written beside saved texts. An icon file holds, big-endian, the
// DiskObject header, its drawer data when it is a drawer, one or two planar
// images, the default tool, the tool types and the tool window.
//
// A DiskObject got from this layer owns all its memory; FreeDiskObject gives
// it back. Callers may point do_DefaultTool, do_ToolTypes and the other
// pointer fields at memory of their own before PutDiskObject: FreeDiskObject
// frees only what this layer allocated, never through those fields.
// Failures give null or false and leave an IconError for IconErr().
#include <cstdint>

constexpr uint16_t WB_DISKMAGIC = 0xE310;
constexpr uint16_t WB_DISKVERSION = 1;
// Low byte of do_Gadget.UserData: 1 marks icons that carry the drawer
// extension (dd_Flags, dd_ViewModes) after the tool window.
constexpr uint32_t WB_DISKREVISION = 1;
constexpr uint32_t WB_DISKREVISIONMASK = 0xFF;

// do_Type
constexpr uint8_t WBDISK = 1;
constexpr uint8_t WBDRAWER = 2;
constexpr uint8_t WBTOOL = 3;
constexpr uint8_t WBPROJECT = 4;
constexpr uint8_t WBGARBAGE = 5;
constexpr uint8_t WBDEVICE = 6;
constexpr uint8_t WBKICK = 7;
constexpr uint8_t WBAPPICON = 8;

constexpr int32_t NO_ICON_POSITION = INT32_MIN;  // 0x80000000

// do_Gadget.Flags, .Activation, .GadgetType as icons use them.
constexpr uint16_t GFLG_GADGHCOMP = 0x0000;
constexpr uint16_t GFLG_GADGHIMAGE = 0x0002;
constexpr uint16_t GFLG_GADGIMAGE = 0x0004;
constexpr uint16_t GACT_RELVERIFY = 0x0001;
constexpr uint16_t GACT_IMMEDIATE = 0x0002;
constexpr uint16_t GTYP_BOOLGADGET = 0x0001;

// A planar image. ImageData holds Depth planes one after the other; a plane
// is Height rows of (Width + 15) / 16 words, the leftmost pixel in the
// word's top bit. Depth is 1 to 8; null ImageData means no data.
struct IconImage {
  int16_t LeftEdge, TopEdge, Width, Height, Depth;
  uint16_t* ImageData;
  uint8_t PlanePick, PlaneOnOff;
  IconImage* NextImage;  // not stored in icon files: always null here
};

// The gadget embedded in an icon. GadgetRender is the normal image,
// SelectRender the selected one (null: the normal image is complemented).
struct IconGadget {
  int16_t LeftEdge, TopEdge, Width, Height;
  uint16_t Flags, Activation, GadgetType;
  IconImage* GadgetRender;
  IconImage* SelectRender;
  int32_t MutualExclude;
  uint16_t GadgetID;
  uint32_t UserData;  // low byte: the icon's revision
};

// The window box a drawer opens with, as stored in the icon.
struct DrawerWindow {
  int16_t LeftEdge, TopEdge, Width, Height;
  uint8_t DetailPen, BlockPen;
  uint32_t IDCMPFlags, Flags;
  int16_t MinWidth, MinHeight;
  uint16_t MaxWidth, MaxHeight;
  uint16_t Type;
};

struct DrawerData {
  DrawerWindow dd_NewWindow;
  int32_t dd_CurrentX, dd_CurrentY;
  uint32_t dd_Flags;     // stored only when the revision is at least 1
  uint16_t dd_ViewModes;
};

struct DiskObject {
  uint16_t do_Magic;    // WB_DISKMAGIC
  uint16_t do_Version;  // WB_DISKVERSION
  IconGadget do_Gadget;
  uint8_t do_Type;      // WBDISK .. WBAPPICON
  char* do_DefaultTool;
  char** do_ToolTypes;  // null-terminated array, or null
  int32_t do_CurrentX, do_CurrentY;
  DrawerData* do_DrawerData;
  char* do_ToolWindow;
  int32_t do_StackSize;
};

enum class IconError {
  None,
  NotFound,      // no such .info file
  ReadFailed,    // the file exists but could not be read
  BadFormat,     // not a DiskObject: magic, version, type or a field is wrong
  Truncated,     // the file ends inside the icon
  BadObject,     // PutDiskObject: the DiskObject can't be stored as it is
  WriteFailed,   // PutDiskObject: the file could not be written
  UnknownType,   // GetDefDiskObject: no default icon for that type
};

// The error of the last failed call of this layer in the calling thread.
IconError IconErr();

// Names may begin with a volume name ("PROGDIR:Tavrel").
// Reads "<name>.info". Null on failure.
DiskObject* GetDiskObject(const char* name);
// Writes "<name>.info", replacing it whole. False on failure; a failed
// write leaves no partial file.
bool PutDiskObject(const char* name, const DiskObject* diskObject);
// Null is allowed.
void FreeDiskObject(DiskObject* diskObject);
// The built-in icon of a type: WBPROJECT (a page with a folded corner) and
// WBTOOL. No default tool, no tool types, no position, stack 4000.
// Null (UnknownType) for other types.
DiskObject* GetDefDiskObject(uint8_t type);
