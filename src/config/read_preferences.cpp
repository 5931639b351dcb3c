#include "config/read_preferences.h"

#include "config/build_menus.h"
#include "config/key_map.h"
#include "config/key_names.h"
#include "config/settings_toggles.h"
#include "config/user_menus.h"
#include "frame/protocol/app_globals.h"
#include "platform/dos/errors.h"
#include "platform/dos/file_io.h"
#include "platform/dos/numbers.h"
#include "platform/exec/memory.h"
#include "platform/utility/strings.h"
#include "services/messages.h"
#include "text/record/settings.h"

#include <cstdint>
#include <cstring>

namespace {

constexpr char Magic[] = "TavrelPrefs 1.0";
constexpr size_t MagicLength = sizeof Magic - 1;
constexpr int FaultyLine = 1;

enum class Section { None, Window, ScriptLabels, Font, Modes, Keys, Menus, Ortho };

struct Header {
    const char* Text;
    Section Kind;
};

// In the order they are tried.
constexpr Header Headers[] = {
    {"[Window]", Section::Window},
    {"[Menus_ARexx]", Section::ScriptLabels},
    {"[Police]", Section::Font},
    {"[Modes]", Section::Modes},
    {"[FunctionKeys]", Section::Keys},
    {"[Macros]", Section::Keys},
    {"[Menus]", Section::Menus},
    {"[ORTHO]", Section::Ortho},
};

// The value behind `name` when the line begins with it, case ignored;
// null otherwise. `name` ends in its '='.
const char* ValueOf(const char* line, const char* name)
{
    const size_t length = std::strlen(name);
    return Strnicmp(line, name, length) == 0 ? line + length : nullptr;
}

// Decimal digits up to the first other byte; none reads as 0. The value
// wraps modulo 2^32 (which keeps a byte's worth exact); *overflow tells
// when it did.
uint32_t DecimalValue(const char* text, bool* overflow = nullptr)
{
    uint32_t value = 0;
    bool wrapped = false;
    for (; *text >= '0' && *text <= '9'; ++text) {
        const uint64_t next = uint64_t(value) * 10 + uint64_t(*text - '0');
        wrapped = wrapped || next > UINT32_MAX;
        value = static_cast<uint32_t>(next);
    }
    if (overflow)
        *overflow = wrapped;
    return value;
}

void WindowLine(SettingsRecord* settings, const char* line)
{
    struct Field {
        const char* Name;
        int16_t SettingsRecord::*Target;
    };
    static constexpr Field Fields[] = {
        {"Width=", &SettingsRecord::WindowWidth},
        {"Height=", &SettingsRecord::WindowHeight},
        {"X=", &SettingsRecord::WindowLeft},
        {"Y=", &SettingsRecord::WindowTop},
    };
    for (const Field& field : Fields) {
        const char* value = ValueOf(line, field.Name);
        if (!value)
            continue;
        long number = 0;
        if (StrToLong(value, &number) >= 0) {
            settings->*field.Target = static_cast<int16_t>(static_cast<uint16_t>(static_cast<unsigned long>(number)));
            settings->WindowPlaced = true;
        }
        return;
    }
}

void FontLine(SettingsRecord* settings, const char* line)
{
    if (const char* value = ValueOf(line, "Size=")) {
        bool overflow = false;
        const uint32_t size = DecimalValue(value, &overflow);
        if (size > 5 && !overflow)
            settings->FontAttr.ta_YSize = static_cast<uint16_t>(size);
    } else if (const char* name = ValueOf(line, "Font=")) {
        Strlcpy(settings->FontName, name, sizeof settings->FontName);
    }
}

void ToggleLine(SettingsRecord* settings, const char* line)
{
    for (const SettingsToggle& toggle : SettingsToggles) {
        const size_t length = std::strlen(toggle.Name);
        if (Strnicmp(line, toggle.Name, length) != 0)
            continue;
        const uint32_t value = line[length] == '=' ? DecimalValue(line + length + 1) : 0;
        if (toggle.Bit == 0) {
            settings->Tabs = static_cast<uint8_t>(value);
        } else {
            const bool on = value > 0;
            settings->Flags = static_cast<uint16_t>(on ? settings->Flags | toggle.Bit : settings->Flags & ~toggle.Bit);
            SetBuiltInCheck(toggle, on);
        }
        return;
    }
}

void ModesLine(SettingsRecord* settings, const char* line)
{
    if (const char* value = ValueOf(line, "Requesters=")) {
        long number = 0;
        if (StrToLong(value, &number) >= 0 && static_cast<unsigned long>(number) <= RequesterPositionMask)
            settings->Flags = static_cast<uint16_t>((settings->Flags & ~RequesterPositionMask) | number);
    } else if (const char* length = ValueOf(line, "MaxLineLength=")) {
        bool overflow = false;
        const uint32_t number = DecimalValue(length, &overflow);
        if (!overflow && number >= 80 && number <= 32767)
            settings->MaxLineLength = number;
    } else if (const char* name = ValueOf(line, "Toolbar=")) {
        Strlcpy(settings->ToolbarName, name, sizeof settings->ToolbarName);
    } else {
        ToggleLine(settings, line);
    }
}

// "ScriptN=label", N from 0 to 19 and "Script" exact; an empty label is
// the default text, kept as the label.
int ScriptLabelLine(const char* line)
{
    if (std::strncmp(line, "Script", 6) != 0)
        return FaultyLine;
    long number = -1;
    const long used = StrToLong(line + 6, &number);
    if (used < 0 || number < 0 || number >= ScriptLabelCount || line[6 + used] != '=')
        return FaultyLine;
    const char* label = line + 6 + used + 1;
    SetScriptLabel(static_cast<int32_t>(number), label[0] ? label : GetString(MessageId{54}));
    return 0;
}

int MenuLine(char* line)
{
    char empty[1] = {0};
    int result = 0;
    if (Stricmp(line, "BAR") == 0) {
        result = AddUserMenu(line, empty, UserMenus.Count);
    } else if (char* equals = std::strchr(line, '=')) {
        *equals = 0;
        result = AddUserMenu(line, equals + 1, UserMenus.Count);
    } else {
        result = FaultyLine;
    }
    return result == 148 ? 0 : result;
}

class Reader {
public:
    Reader(SettingsRecord* settings, KeyMap* keys, bool shared, char* buffer, size_t size)
        : settings_(settings), keys_(keys), shared_(shared), buffer_(buffer), size_(size)
    {
    }

    int Run()
    {
        size_t at = MagicLength;
        while (at < size_) {
            if (buffer_[at] == 0) {
                ++at;
                continue;
            }
            char* line = buffer_ + at;
            if (const Header* header = HeaderAt(line)) {
                section_ = header->Kind;
                at += std::strlen(header->Text);
                continue;
            }
            if (section_ == Section::Keys) {
                if (!KeyLine(&at))
                    break;
                continue;
            }
            // A line's handling may cut it; its end is taken first.
            const size_t length = std::strlen(line);
            SectionLine(line);
            at += length;
        }
        return error_;
    }

private:
    static const Header* HeaderAt(const char* line)
    {
        for (const Header& header : Headers) {
            if (Strnicmp(line, header.Text, std::strlen(header.Text)) == 0)
                return &header;
        }
        return nullptr;
    }

    void SectionLine(char* line)
    {
        switch (section_) {
        case Section::Window:
            WindowLine(settings_, line);
            break;
        case Section::Font:
            FontLine(settings_, line);
            break;
        case Section::Modes:
            ModesLine(settings_, line);
            break;
        case Section::ScriptLabels:
            if (shared_ && ScriptLabelLine(line) != 0)
                error_ = FaultyLine;
            break;
        case Section::Menus:
            // Each menu line decides the fault afresh.
            if (shared_)
                error_ = MenuLine(line);
            break;
        case Section::None:
        case Section::Keys:
        case Section::Ortho:
            break;
        }
    }

    // KEY="TEXT". The key ends at the first '=', which may lie on a later
    // line; without one the file ends here. A '=' not followed by '"' is a
    // fault, and reading goes on behind it as at a line's start. False when
    // reading ends.
    bool KeyLine(size_t* at)
    {
        char* line = buffer_ + *at;
        size_t equals = *at;
        while (equals < size_ && buffer_[equals] != '=')
            ++equals;
        if (equals >= size_) {
            error_ = FaultyLine;
            return false;
        }
        buffer_[equals] = 0;
        if (buffer_[equals + 1] != '"') {
            error_ = FaultyLine;
            *at = equals + 1;
            return true;
        }
        char* text = buffer_ + equals + 2;
        const size_t rest = std::strlen(buffer_ + equals + 1);
        buffer_[equals + rest] = 0; // the closing quote, whatever it is
        ParsedKey key;
        KeyRequest request;
        bool bound = false;
        if (ParseKeyName(line, &key) >= 0) {
            request.Key = key.Key;
            request.Qualifier = key.Qualifier;
            request.Macro = text;
            bound = SetKeyMacro(keys_, &request) != 0;
        }
        if (!bound)
            error_ = FaultyLine;
        *at = equals + 1 + rest;
        return true;
    }

    SettingsRecord* settings_;
    KeyMap* keys_;
    bool shared_; // the script labels and the user menus are read too
    char* buffer_;
    size_t size_;
    Section section_ = Section::None;
    int error_ = 0;
};

// All `size` bytes; a file that turns out shorter is a failed read.
bool ReadWhole(int fd, char* buffer, size_t size)
{
    size_t done = 0;
    while (done < size) {
        const long got = ReadBytes(fd, buffer + done, size - done);
        if (got <= 0)
            return false;
        done += static_cast<size_t>(got);
    }
    return true;
}

// Line feeds become line ends; a file with another first line holds nothing.
int ParseInto(SettingsRecord* settings, KeyMap* keys, bool shared, char* buffer, size_t size)
{
    for (size_t at = 0; at < size; ++at) {
        if (buffer[at] == '\n')
            buffer[at] = 0;
    }
    if (std::strcmp(buffer, Magic) != 0)
        return 0;
    return Reader(settings, keys, shared, buffer, size).Run();
}

int ReadInto(SettingsRecord* settings, KeyMap* keys, bool shared, const char* path)
{
    if (KindOfFile(path) == FileKind::Missing)
        return 0;
    const int fd = OpenForReading(path);
    if (fd < 0)
        return FaultyLine;
    const long long length = FileLength(fd);
    int result = FaultyLine;
    if (length > 0) {
        const auto size = static_cast<size_t>(length);
        auto* buffer = static_cast<char*>(AllocVec(size + 1, MEMF_CLEAR));
        if (buffer && ReadWhole(fd, buffer, size))
            result = ParseInto(settings, keys, shared, buffer, size);
        FreeVec(buffer);
    }
    CloseFile(fd);
    return result;
}

} // namespace

int ParsePreferences(SettingsRecord* settings, char* buffer, size_t size)
{
    return ParseInto(settings, &GlobalKeyMap, true, buffer, size);
}

int ReadPreferences(SettingsRecord* settings, const char* path)
{
    return ReadInto(settings, &GlobalKeyMap, true, path);
}

int LoadPreferences(SettingsRecord* settings, KeyMap* keys, const char* path)
{
    if (KindOfFile(path) == FileKind::Missing)
        return FaultyLine;
    return ReadInto(settings, keys, false, path);
}
