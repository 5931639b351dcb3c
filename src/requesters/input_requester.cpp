#include "requesters/input_requesters.h"

#include "frame/window/status.h"
#include "platform/display/requester_window.h"
#include "platform/utility/strings.h"
#include "requesters/requester_frame.h"
#include "requesters/requester_layout.h"

#include <algorithm>
#include <cstdlib>

namespace {

constexpr size_t MaxInputLength = 254;

RequesterGadget InputField(char* buffer, int limit)
{
    RequesterGadget field;
    if (buffer) {
        field.Kind = GadgetKind::String;
        field.Id = StringGadget;
        field.MaxChars = limit;
        field.Text = buffer;
        if (limit > 0 && static_cast<int>(field.Text.size()) >= limit)
            field.Text.resize(static_cast<size_t>(limit - 1));
    } else {
        field.Kind = GadgetKind::Integer;
        field.Id = NumberGadget;
        field.Number = limit;
    }
    return field;
}

void CopyField(const RequesterWindow& requester, char* buffer, int limit)
{
    if (limit > 0)
        Strlcpy(buffer, RequesterText(&requester, StringGadget).c_str(), static_cast<size_t>(limit));
}

} // namespace

void AppendFunctionUsage(TextRecord* record, RequesterWindow& requester, uint16_t field)
{
    ShowBusyPointer(record);
    int row = FunctionListRequester(record);
    ClearBusyPointer(record);
    if (row <= 0)
        return;
    std::string text = RequesterText(&requester, field) + FunctionListRow(row);
    text.resize(std::min(text.size(), MaxInputLength));
    SetRequesterText(&requester, field, text);
}

int InputRequester(TextRecord* record, const char* title, char* buffer, int* param)
{
    int limit = std::abs(*param);
    RequesterGadget field = InputField(buffer, limit);
    RequesterGadget fieldRow = Row({});
    if (*param < 0)
        fieldRow.Children.push_back(Labelled(GadgetKind::Button, FunctionListGadget, "..."));
    fieldRow.Children.push_back(std::move(field));
    RequesterWindow requester;
    requester.Layout = Column({TextBox({title}), fieldRow, YesNoRow()});
    requester.Widens = true;
    requester.WidthChars = buffer ? std::min(limit, 30) : 0;
    if (!OpenRequesterFrame(record, &requester, false))
        return -1;
    ActivateRequesterGadget(&requester, buffer ? StringGadget : NumberGadget);
    int result = 0;
    for (bool done = false; !done;) {
        int answer = RunRequester(record, &requester, nullptr);
        if (answer == NoGadget || answer == RequestClosed) {
            done = true;
        } else if (!buffer) {
            if (answer == YesGadget) {
                *param = RequesterNumber(&requester, NumberGadget);
                result = 1;
                done = true;
            }
        } else if (answer == FunctionListGadget) {
            AppendFunctionUsage(record, requester, StringGadget);
        } else if (answer == StringGadget || answer == YesGadget) {
            CopyField(requester, buffer, limit);
            result = answer == YesGadget;
            done = answer == YesGadget;
        }
    }
    CloseRequesterFrame(record, &requester);
    return result;
}

int InputRequesterId(TextRecord* record, MessageId title, char* buffer, int* param)
{
    return InputRequester(record, GetString(title), buffer, param);
}
