#include "config/write_preferences.h"

#include "config/key_map.h"
#include "config/key_names.h"
#include "config/settings_toggles.h"
#include "config/user_menus.h"
#include "files/replacement_file.h"
#include "frame/protocol/app_globals.h"
#include "frame/window/busy.h"
#include "frame/window/status.h"
#include "frame/window/text_window.h"
#include "platform/dos/file_io.h"
#include "platform/utility/strings.h"
#include "requesters/file_reports.h"
#include "text/record/settings.h"

namespace {

constexpr MessageId SavingPrefs = MessageId{104};

void Line(std::string* out, const char* key, long value)
{
    *out += key;
    *out += std::to_string(value);
    *out += '\n';
}

void Line(std::string* out, const char* key, const char* value)
{
    *out += key;
    *out += value;
    *out += '\n';
}

void ScriptLabels(std::string* out, const SettingsRecord& settings)
{
    for (int index = 0; index < ScriptLabelCount; ++index) {
        if (!settings.ScriptLabels[index][0])
            continue;
        *out += "Script";
        *out += std::to_string(index);
        *out += '=';
        Line(out, "", settings.ScriptLabels[index]);
    }
}

void FontAndWindow(std::string* out, const SettingsRecord& settings)
{
    if (!settings.FontName[0])
        return;
    *out += "\n[Police]\n";
    Line(out, "Font=", settings.FontName);
    Line(out, "Size=", static_cast<long>(settings.FontAttr.ta_YSize));
    *out += "\n[Window]\n";
    Line(out, "X=", static_cast<long>(settings.WindowLeft));
    Line(out, "Y=", static_cast<long>(settings.WindowTop));
    Line(out, "Width=", static_cast<long>(settings.WindowWidth));
    Line(out, "Height=", static_cast<long>(settings.WindowHeight));
}

void Modes(std::string* out, const SettingsRecord& settings)
{
    *out += "\n[Modes]\n";
    for (const SettingsToggle& toggle : SettingsToggles) {
        const long value = toggle.Bit ? ((settings.Flags & toggle.Bit) ? 1 : 0) : static_cast<long>(settings.Tabs);
        *out += toggle.Name;
        Line(out, "=", value);
    }
    Line(out, "Requesters=", static_cast<long>(settings.Flags & RequesterPositionMask));
    Line(out, "MaxLineLength=", static_cast<long>(settings.MaxLineLength));
    if (settings.ToolbarName[0])
        Line(out, "Toolbar=", settings.ToolbarName);
}

void Keys(std::string* out, const KeyMap& keys)
{
    if (keys.Entries.Empty())
        return;
    *out += "\n[Macros]";
    for (Node* node = keys.Entries.First(); node; node = NextNode(node)) {
        const auto* entry = reinterpret_cast<const KeyMapEntry*>(node);
        for (uint32_t qualifier = 0; qualifier < QualifierCount; ++qualifier) {
            if (!entry->Macro[qualifier])
                continue;
            *out += '\n';
            *out += FormatKeyName(entry->Key, qualifier);
            *out += "=\"";
            *out += entry->Macro[qualifier];
            *out += '"';
        }
    }
    *out += '\n';
}

void Menus(std::string* out, const UserMenuState& menus)
{
    if (menus.Count <= 0)
        return;
    *out += "\n[Menus]\n";
    for (int32_t index = 0; index < menus.Count; ++index) {
        const char* label = menus.Labels[index];
        if (Stricmp(label, "BAR") == 0)
            Line(out, label, "");
        else
            Line(out, (std::string(label) + "=").c_str(), menus.Macros[index]);
    }
}

} // namespace

std::string FormatPreferences(const SettingsRecord& settings, const KeyMap& keys, const UserMenuState& menus)
{
    std::string out = "TavrelPrefs 1.0\n[Menus_ARexx]\n";
    ScriptLabels(&out, settings);
    FontAndWindow(&out, settings);
    Modes(&out, settings);
    Keys(&out, keys);
    Menus(&out, menus);
    return out;
}

int WritePreferences(TextRecord* record, const char* path)
{
    ReplacementFile file;
    if (!OpenReplacement(path, &file)) {
        DosErrorRequester(record, SavingPrefs);
        return -1;
    }
    LockTextWindow(record);
    SetStatusMessage(record, SavingPrefs);
    ObtainSemaphoreShared(&Globals.MenuTableLock);
    const std::string contents = FormatPreferences(Settings, GlobalKeyMap, UserMenus);
    ReleaseSemaphore(&Globals.MenuTableLock);
    int result = 0;
    if (!WriteBytes(file.fd, contents.data(), contents.size())) {
        AbandonReplacement(&file);
        result = 1;
    } else if (!CommitReplacement(&file)) {
        result = 1;
    }
    if (result != 0)
        DosErrorRequester(record, SavingPrefs);
    UnlockTextWindow(record);
    UpdateStatusTitle(record);
    return result;
}
