#include "text/record/settings.h"

SettingsRecord Settings = {
    .Flags = DefaultSettingsFlags,
    .Tabs = 4,
    .MaxLineLength = 255,
    .WindowLeft = 0,
    .WindowTop = 1,
    .WindowWidth = 640,
    .WindowHeight = 199,
    .ScreenWidth = 640,
    .ScreenHeight = 200,
    .FontAttr = {.ta_Name = Settings.FontName, .ta_YSize = 8, .ta_Style = 0, .ta_Flags = 0},
    .FontName = "topaz.font",
    .ToolbarName = "",
    .ScriptLabels = {},
    .WindowPlaced = false,
};
