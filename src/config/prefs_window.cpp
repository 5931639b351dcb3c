#include "config/prefs_window.h"

#include "config/key_map.h"
#include "config/key_messages.h"
#include "config/key_requests.h"
#include "config/prefs_path.h"
#include "config/prefs_window_layout.h"
#include "config/read_preferences.h"
#include "config/settings_toggles.h"
#include "config/toolbars.h"
#include "config/write_preferences.h"
#include "files/window_box.h"
#include "frame/protocol/app_globals.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "frame/window/status.h"
#include "platform/dos/paths.h"
#include "platform/dos/volumes.h"
#include "platform/exec/memory.h"
#include "platform/utility/strings.h"
#include "requesters/file_reports.h"
#include "requesters/file_requesters.h"
#include "requesters/input_requesters.h"
#include "requesters/no_memory.h"
#include "requesters/requester_frame.h"
#include "services/messages.h"
#include "text/record/settings.h"
#include "text/record/text_record.h"

#include <algorithm>
#include <string>

uint32_t CurrentPage = 0;
uint32_t SelectedQualifier = 0;
char EditedKey[2] = "a";

namespace {

namespace PG = PrefsGadget;

constexpr MessageId SavingPrefs = MessageId{104};

// A preferences file chosen by the user under `title`, starting in the
// directory of PrefsPath with the name "Tavrel.prefs"; its full path into
// `path` (JoinedPathSize bytes). False when cancelled.
bool AskPrefsFile(TextRecord* record, const char* title, char* path)
{
    char drawer[FileDirectorySize];
    char file[FileNameSize];
    ObtainSemaphoreShared(&Globals.PrefsPathLock);
    Strlcpy(drawer, ExpandVolumePath(PrefsPath).c_str(), sizeof drawer);
    ReleaseSemaphore(&Globals.PrefsPathLock);
    Strlcpy(file, PrefsFileName, sizeof file);
    if (!FileRequester(record, title, drawer, file))
        return false;
    JoinPath(drawer, file, path);
    return true;
}

// The four number gadgets of the new window's box and their settings.
struct BoxField {
    uint16_t Id;
    int16_t SettingsRecord::*Value;
};
constexpr BoxField BoxFields[] = {
    {PG::Left, &SettingsRecord::WindowLeft},
    {PG::Top, &SettingsRecord::WindowTop},
    {PG::Width, &SettingsRecord::WindowWidth},
    {PG::Height, &SettingsRecord::WindowHeight},
};

class PrefsWindowRun {
public:
    explicit PrefsWindowRun(TextRecord* record) : record_(record), work_(Settings) { InitKeyMap(&local_); }
    ~PrefsWindowRun() { FreeKeyMap(&local_); }
    PrefsWindowRun(const PrefsWindowRun&) = delete;
    PrefsWindowRun& operator=(const PrefsWindowRun&) = delete;

    // Runs the window until it is left; the button that left it.
    int Run();
    void PutInForce();
    void Save();
    void SaveAs();

private:
    // The text of key `key` under `qualifier`: this opening's edit, else
    // the map's, else "". *found tells whether there was one.
    std::string KeyText(uint8_t key, uint32_t qualifier, bool* found = nullptr) const;
    void ShowFunctionKeys();
    void ShowFreeKey();
    void StoreKeyRows(uint32_t qualifier);
    void Bind(uint8_t key, uint32_t qualifier, const std::string& text);
    void ChooseKey();
    void ReadWindowBox();
    void ChooseFont();
    void Load();
    void ShowSettings();
    void Serve(int result);

    TextRecord* record_;
    SettingsRecord work_;
    KeyMap local_;
    RequesterWindow window_;
};

std::string PrefsWindowRun::KeyText(uint8_t key, uint32_t qualifier, bool* found) const
{
    std::string text;
    bool bound = false;
    const KeyMapEntry* entry = FindKeyEntry(&local_, key);
    if (entry && entry->Macro[qualifier]) {
        text = entry->Macro[qualifier];
        bound = true;
    } else if (char* global = GetKeyMacro(record_, key, qualifier, false)) {
        text = global;
        bound = true;
        FreeVec(global);
    }
    if (found)
        *found = bound;
    return text;
}

void PrefsWindowRun::ShowFunctionKeys()
{
    for (int n = 1; n <= PG::FunctionKeyRows; ++n)
        SetRequesterText(&window_, static_cast<uint16_t>(PG::FirstRowMacro + n - 1), KeyText(static_cast<uint8_t>(n), SelectedQualifier));
}

// A character key needs a qualifier: without one its macro can't be edited.
void PrefsWindowRun::ShowFreeKey()
{
    SetRequesterText(&window_, PG::Key, EditedKey);
    SetRequesterText(&window_, PG::KeyMacro, KeyText(static_cast<uint8_t>(EditedKey[0]), SelectedQualifier));
    SetRequesterDisabled(&window_, PG::KeyMacro, SelectedQualifier == 0);
}

void PrefsWindowRun::Bind(uint8_t key, uint32_t qualifier, const std::string& text)
{
    KeyRequest request;
    request.Key = key;
    request.Qualifier = qualifier;
    request.Macro = const_cast<char*>(text.c_str());
    if (!SetKeyMacro(&local_, &request))
        NoMemoryRequester(record_);
}

// The rows' texts count whether or not Return confirmed them; only the
// changed ones go into this opening's map (an emptied one as "").
void PrefsWindowRun::StoreKeyRows(uint32_t qualifier)
{
    for (int n = 1; n <= PG::FunctionKeyRows; ++n) {
        bool found = false;
        const std::string shown = KeyText(static_cast<uint8_t>(n), qualifier, &found);
        const std::string typed = RequesterText(&window_, static_cast<uint16_t>(PG::FirstRowMacro + n - 1));
        if (!found || typed != shown)
            Bind(static_cast<uint8_t>(n), qualifier, typed);
    }
}

void PrefsWindowRun::ChooseKey()
{
    ShowBusyPointer(record_);
    KeyListRequest request;
    request.Qualifier = SelectedQualifier;
    request.LocalMap = &local_;
    auto** keys = reinterpret_cast<char**>(SendToMainWait(record_, CMD_KEY_LIST, reinterpret_cast<intptr_t>(&request)));
    if (keys) {
        const int row = ListRequester(record_, GetString(MessageId{243}), request.Count, keys);
        if (row > 0) {
            EditedKey[0] = keys[row - 1][0];
            ShowFreeKey();
        }
        FreeVec(keys);
    } else {
        ErrorRequester(record_, MessageId{244});
    }
    ClearBusyPointer(record_);
}

// The box of the calling text's window as it stands now.
void PrefsWindowRun::ReadWindowBox()
{
    WindowBox box;
    if (!CurrentWindowBox(record_, &box))
        return;
    work_.WindowLeft = static_cast<int16_t>(box.Left);
    work_.WindowTop = static_cast<int16_t>(box.Top);
    work_.WindowWidth = static_cast<int16_t>(box.Width);
    work_.WindowHeight = static_cast<int16_t>(box.Height);
    for (const BoxField& field : BoxFields)
        SetRequesterNumber(&window_, field.Id, work_.*field.Value);
}

void PrefsWindowRun::ChooseFont()
{
    std::string name = work_.FontName;
    uint16_t size = work_.FontAttr.ta_YSize;
    if (!::ChooseFont(record_, MessageId{127}, &name, &size))
        return;
    Strlcpy(work_.FontName, name.c_str(), sizeof work_.FontName);
    work_.FontAttr.ta_YSize = size;
    SetRequesterText(&window_, PG::FontName, FontLabel(work_));
}

// Every gadget of the preferences page anew from WorkSettings.
void PrefsWindowRun::ShowSettings()
{
    for (int row = SaveTabsToggle; row <= FullNameToggle; ++row)
        SetRequesterNumber(&window_, static_cast<uint16_t>(PG::SaveTabs + row), (work_.Flags & SettingsToggles[row].Bit) != 0);
    SetRequesterNumber(&window_, PG::Requesters, work_.Flags & RequesterPositionMask);
    SetRequesterNumber(&window_, PG::Tabs, work_.Tabs);
    SetRequesterNumber(&window_, PG::MaxLineLength, static_cast<int32_t>(work_.MaxLineLength));
    for (const BoxField& field : BoxFields)
        SetRequesterNumber(&window_, field.Id, work_.*field.Value);
    SetRequesterText(&window_, PG::FontName, FontLabel(work_));
    SetRequesterText(&window_, PG::ToolbarName, work_.ToolbarName);
}

// "_Load": the settings and key bindings of a preferences file the user
// chooses come into the window, to be used, saved or dropped as any edit.
void PrefsWindowRun::Load()
{
    StoreKeyRows(SelectedQualifier);
    char path[JoinedPathSize];
    if (!AskPrefsFile(record_, PlainLabel(GetString(MessageId{97})).c_str(), path))
        return;
    if (LoadPreferences(&work_, &local_, path) != 0)
        ErrorRequester(record_, MessageId{105});
    ShowSettings();
    ShowFunctionKeys();
    ShowFreeKey();
}

void PrefsWindowRun::Serve(int result)
{
    if (result >= PG::SaveTabs && result <= PG::FullName) {
        work_.Flags ^= static_cast<uint16_t>(SettingsToggles[result - PG::SaveTabs].Bit);
        return;
    }
    if (result >= PG::FirstRowFunctions && result < PG::FirstRowFunctions + PG::FunctionKeyRows) {
        AppendFunctionUsage(record_, window_, static_cast<uint16_t>(result - PG::FirstRowFunctions + PG::FirstRowMacro));
        return;
    }
    switch (result) {
    case PG::Qualifier:
        StoreKeyRows(SelectedQualifier);
        SelectedQualifier = static_cast<uint32_t>(RequesterNumber(&window_, PG::Qualifier)) % QualifierCount;
        ShowFunctionKeys();
        ShowFreeKey();
        break;
    case PG::Pages:
        CurrentPage = static_cast<uint32_t>(RequesterNumber(&window_, PG::Pages));
        break;
    case PG::Requesters:
        work_.Flags = static_cast<uint16_t>((work_.Flags & ~RequesterPositionMask) |
                                            (RequesterNumber(&window_, PG::Requesters) & RequesterPositionMask));
        break;
    case PG::ReadWindow:
        ReadWindowBox();
        break;
    case PG::Font:
        ChooseFont();
        break;
    case PG::Tabs: {
        const int32_t tabs = RequesterNumber(&window_, PG::Tabs);
        if (tabs >= 2 && tabs <= 40)
            work_.Tabs = static_cast<uint8_t>(tabs);
        else
            SetRequesterNumber(&window_, PG::Tabs, work_.Tabs);
        break;
    }
    case PG::MaxLineLength: {
        const int32_t length = RequesterNumber(&window_, PG::MaxLineLength);
        if (length >= 80 && length <= 32767)
            work_.MaxLineLength = static_cast<uint32_t>(length);
        break;
    }
    case PG::Width:
    case PG::Height:
    case PG::Top:
    case PG::Left:
        for (const BoxField& field : BoxFields) {
            if (field.Id == result)
                work_.*field.Value = static_cast<int16_t>(RequesterNumber(&window_, field.Id));
        }
        break;
    case PG::Toolbar:
        LoadToolbarCommand(record_);
        break;
    case PG::Load:
        Load();
        break;
    case PG::ChooseKey:
        ChooseKey();
        break;
    case PG::Key: {
        const std::string key = RequesterText(&window_, PG::Key);
        if (!key.empty())
            EditedKey[0] = key[0];
        ShowFreeKey();
        break;
    }
    case PG::KeyFunctions:
        AppendFunctionUsage(record_, window_, PG::KeyMacro);
        break;
    case PG::KeyMacro:
        Bind(static_cast<uint8_t>(EditedKey[0]), SelectedQualifier, RequesterText(&window_, PG::KeyMacro));
        break;
    default:
        break;
    }
}

int PrefsWindowRun::Run()
{
    // The menu's label holds a no-break space, which a title doesn't need.
    window_.Title = GetString(MessageId{52});
    std::replace(window_.Title.begin(), window_.Title.end(), '\xA0', ' ');
    window_.Layout = PrefsLayout(work_, CurrentPage, SelectedQualifier);
    window_.Widens = true;
    if (!OpenRequesterFrame(record_, &window_, false))
        return PG::Cancel;
    ShowFunctionKeys();
    ShowFreeKey();
    for (;;) {
        const int result = RunRequester(record_, &window_, nullptr);
        if (result == RequestClosed || result == PG::Cancel)
            break;
        if (result == PG::Use || result == PG::Save || result == PG::SaveAs) {
            StoreKeyRows(SelectedQualifier);
            CloseRequesterFrame(record_, &window_);
            return result;
        }
        Serve(result);
    }
    CloseRequesterFrame(record_, &window_);
    return PG::Cancel;
}

// The settings of texts to come, and this opening's key edits for all
// texts: an emptied binding goes.
void PrefsWindowRun::PutInForce()
{
    work_.FontAttr.ta_Name = Settings.FontName;
    Settings = work_;
    int refused = 0;
    for (Node* node = local_.Entries.First(); node; node = NextNode(node)) {
        const auto* entry = reinterpret_cast<const KeyMapEntry*>(node);
        for (uint32_t qualifier = 0; qualifier < QualifierCount; ++qualifier) {
            const char* text = entry->Macro[qualifier];
            if (!text)
                continue;
            if (text[0])
                refused += SetKey(record_, entry->Key, qualifier, text) == 0 ? 1 : 0;
            else
                ClearKey(record_, entry->Key, qualifier);
        }
    }
    if (refused > 0)
        NoMemoryRequester(record_);
}

void PrefsWindowRun::Save()
{
    char path[JoinedPathSize];
    // The configuration directory is made on the first save.
    ObtainSemaphoreShared(&Globals.PrefsPathLock);
    EnsureVolumeDirectory(PrefsPath);
    ReleaseSemaphore(&Globals.PrefsPathLock);
    PrefsFilePath(path);
    WritePreferences(record_, path);
}

void PrefsWindowRun::SaveAs()
{
    char path[JoinedPathSize];
    if (AskPrefsFile(record_, GetString(SavingPrefs), path))
        WritePreferences(record_, path);
}

} // namespace

void PreferencesWindow(TextRecord* record)
{
    if (!SendToMainWait(record, CMD_KEYS_LOCK, 0)) {
        ErrorRequester(record, MessageId::KeysAccessDenied);
        return;
    }
    {
        PrefsWindowRun run(record);
        const int result = run.Run();
        if (result != PG::Cancel)
            run.PutInForce();
        if (result == PG::Save)
            run.Save();
        else if (result == PG::SaveAs)
            run.SaveAs();
    }
    SendToMain(record, CMD_KEYS_UNLOCK, 0);
}
