#include "text/record/create_text_record.h"

#include "platform/exec/memory.h"
#include "platform/exec/ports.h"
#include "services/messages.h"
#include "text/record/line_buffers.h"
#include "text/record/line_table.h"
#include "text/record/settings.h"
#include "text/record/tab_size.h"
#include "text/record/text_record.h"

#include <algorithm>
#include <filesystem>
#include <new>
#include <string>
#include <system_error>

namespace {

void CopyDirectory(char* target, const char* directory)
{
    std::string current;
    if (directory == nullptr) {
        std::error_code error;
        current = std::filesystem::current_path(error).string();
        directory = current.c_str();
    }
    const size_t length = std::min(std::char_traits<char>::length(directory), size_t{FileDirectorySize - 1});
    std::copy_n(directory, length, target);
    target[length] = '\0';
}

// The parts of a record that come from the settings of the moment.
void TakeSettings(TextRecord* record)
{
    record->Options = Settings.Flags;
    record->WindowLeft = Settings.WindowLeft;
    record->WindowTop = Settings.WindowTop;
    record->WindowWidth = Settings.WindowWidth;
    record->WindowHeight = Settings.WindowHeight;
    record->FontName = Settings.FontAttr.ta_Name;
    record->FontSize = Settings.FontAttr.ta_YSize;
    SetTabSize(record, static_cast<int16_t>(std::clamp<int>(Settings.Tabs, MinTabSize, MaxTabSize)));
}

} // namespace

TextRecord* CreateTextRecord(const char* directory)
{
    void* memory = AllocVec(sizeof(TextRecord), MEMF_PUBLIC | MEMF_CLEAR);
    if (memory == nullptr) {
        return nullptr;
    }
    auto* record = new (memory) TextRecord{};
    record->CommandPort = CreateMsgPort();
    if (record->CommandPort != nullptr) {
        record->LinePool = CreateLinePool();
    }
    const uint32_t maxLineLength = std::min<uint32_t>(Settings.MaxLineLength, INT32_MAX);
    if (record->LinePool == nullptr || !CreateLineTable(record)
        || !AllocLineBuffers(record, static_cast<int32_t>(maxLineLength))) {
        FreeTextRecord(record);
        return nullptr;
    }
    CopyDirectory(record->FileDirectory, directory);
    CopyDirectory(record->LastDirectory, record->FileDirectory);
    const char* name = GetString(MessageId::NoName);
    std::copy_n(name, std::min(std::char_traits<char>::length(name), size_t{FileNameSize - 1}), record->FileName);
    TakeSettings(record);
    return record;
}

void FreeTextRecord(TextRecord* record)
{
    if (record == nullptr) {
        return;
    }
    DeletePool(record->LinePool);
    if (record->CommandPort != nullptr) {
        DeleteMsgPort(record->CommandPort);
    }
    FreeLineTable(record);
    FreeVec(record->EditLine);
    FreeVec(record);
}
