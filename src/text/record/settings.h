#pragma once
// The settings of the whole program: one global record, statically holding
// the defaults, filled from the preferences file and the tool types,
// replaced as a whole by the preferences window, and copied into every new
// text when its process starts. Only the main process writes it; a text
// that wants it changed asks main by message. It has no lock: a text reads
// it once, so later changes reach only later texts.
#include <cstdint>

// Bits 0 and 1 of SettingsRecord::Flags: where requesters open.
enum RequesterPosition : uint16_t {
    ScreenCenter = 0,
    FollowMouse = 1,
    ScreenTopLeft = 2,
    WindowCenter = 3,
};
constexpr uint16_t RequesterPositionMask = 0x03;

// Position mode 0, insert mode, save tabs and full name on; backup, save
// icon and UPPER=lower off. The other bits are the same as the Options bits
// of a text (text_record.h).
constexpr uint16_t DefaultSettingsFlags = 0x2194;

constexpr int ScriptLabelCount = 20;
constexpr int ScriptLabelSize = 12; // 11 characters and a terminator

struct SettingsRecord {
    // The font of new texts, laid out as the display layer's font attributes.
    struct FontAttributes {
        const char* ta_Name;
        uint16_t ta_YSize;
        uint8_t ta_Style;
        uint8_t ta_Flags;
    };

    uint16_t Flags;
    uint8_t Tabs;           // tab width of new texts, 1 to 40
    uint32_t MaxLineLength; // size of the line buffers of new texts
    int16_t WindowLeft;
    int16_t WindowTop;
    int16_t WindowWidth;  // limited to ScreenWidth once the screen is known
    int16_t WindowHeight; // limited to ScreenHeight
    uint16_t ScreenWidth; // the real size once the screen is taken
    uint16_t ScreenHeight;
    FontAttributes FontAttr; // ta_Name points at FontName of the same record
    char FontName[80];
    char ToolbarName[64];                                 // empty: no toolbar
    char ScriptLabels[ScriptLabelCount][ScriptLabelSize]; // the script items of the scripts menu
    bool WindowPlaced;                                    // the preferences gave the window's box
};

// The one instance, holding the defaults until the preferences are read.
extern SettingsRecord Settings;
