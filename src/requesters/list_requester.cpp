#include "requesters/input_requesters.h"

#include "platform/display/requester_window.h"
#include "requesters/requester_frame.h"
#include "requesters/requester_layout.h"
#include "text/record/text_record.h"

#include <atomic>

namespace {

std::atomic<int> UsageCount{0};
std::atomic<const char* const*> Usages{nullptr};

} // namespace

int ListRequester(TextRecord* record, const char* title, int count, const char* const strings[])
{
    RequesterGadget list;
    list.Kind = GadgetKind::List;
    list.Id = ListGadget;
    list.Rows.assign(strings, strings + count);
    list.Number = 0;
    RequesterWindow requester;
    requester.Title = title;
    requester.Layout = Column({list, YesNoRow()});
    requester.WidthChars = 30;
    requester.MinVisibleRows = record ? record->VisibleRows / 2 : 0;
    if (!OpenRequesterFrame(record, &requester, false))
        return -1;
    int selected = 0;
    int accepted = -1;
    for (bool done = false; !done;) {
        int rawKey = 0;
        int answer = RunRequester(record, &requester, &rawKey);
        if (answer == ListGadget) {
            int row = RequesterNumber(&requester, ListGadget);
            done = row == selected;
            if (done)
                accepted = selected;
            selected = row;
        } else if (answer == RequestKey) {
            if (rawKey == RAWKEY_CRSRUP && selected > 0)
                SetRequesterNumber(&requester, ListGadget, --selected);
            else if (rawKey == RAWKEY_CRSRDOWN && selected < count - 1)
                SetRequesterNumber(&requester, ListGadget, ++selected);
        } else {
            if (answer == YesGadget)
                accepted = selected;
            done = true;
        }
    }
    CloseRequesterFrame(record, &requester);
    return accepted + 1;
}

void SetFunctionUsages(int count, const char* const* usages)
{
    Usages.store(usages);
    UsageCount.store(usages ? count : 0);
}

const char* FunctionListRow(int row)
{
    const char* const* usages = Usages.load();
    return usages && row >= 1 && row <= UsageCount.load() ? usages[row - 1] : "";
}

int FunctionListRequester(TextRecord* record)
{
    int32_t help = record->HelpCommandId;
    record->HelpCommandId = -1;
    int row = ListRequester(record, GetString(MessageId{194}), UsageCount.load(), Usages.load());
    record->HelpCommandId = help;
    return row;
}
