#pragma once
// The gadgets of the preferences window and their ids.
#include "platform/display/requester_window.h"

struct SettingsRecord;

namespace PrefsGadget {
constexpr uint16_t Use = 1;
constexpr uint16_t Save = 2;
constexpr uint16_t SaveAs = 3;
constexpr uint16_t Cancel = 4;
constexpr uint16_t Load = 5;
constexpr uint16_t Qualifier = 9;
constexpr uint16_t Pages = 10;
constexpr uint16_t Requesters = 11;
constexpr uint16_t SaveTabs = 12; // to 15, one per option bit
constexpr uint16_t FullName = 15;
constexpr uint16_t ReadWindow = 16;
constexpr uint16_t Font = 17;
constexpr uint16_t Tabs = 18;
constexpr uint16_t MaxLineLength = 19;
constexpr uint16_t Width = 20;
constexpr uint16_t Height = 21;
constexpr uint16_t Top = 22;
constexpr uint16_t Left = 23;
constexpr uint16_t Toolbar = 24;
constexpr uint16_t ChooseKey = 25;
constexpr uint16_t Key = 26;
constexpr uint16_t KeyFunctions = 27;
constexpr uint16_t KeyMacro = 28;
// The names the font and toolbar gadgets show, beside their buttons.
constexpr uint16_t FontName = 29;
constexpr uint16_t ToolbarName = 30;
constexpr uint16_t FirstRowFunctions = 32; // + n - 1 for F(n)
constexpr uint16_t FirstRowMacro = 44;     // + n - 1 for F(n)
constexpr int FunctionKeyRows = 12;
constexpr int MacroLimit = 230;
} // namespace PrefsGadget

// The window's tree, showing `work` and the page and qualifier chosen;
// the function key texts and the free key row are filled in afterwards.
RequesterGadget PrefsLayout(const SettingsRecord& work, uint32_t page, uint32_t qualifier);

// "name/size", as the font gadget shows it.
std::string FontLabel(const SettingsRecord& work);
