#include "requesters/message_requesters.h"

#include "frame/window/report.h"
#include "platform/display/requester_window.h"
#include "platform/dos/errors.h"
#include "requesters/requester_frame.h"
#include "requesters/requester_layout.h"

#include <cstdarg>

namespace {

// Opens, runs and closes a requester of `layout`: the answer, or -1 when
// it could not open.
int AskWith(TextRecord* record, RequesterGadget layout, int* rawKey, bool reportNoScreen = false)
{
    RequesterWindow requester;
    requester.Layout = std::move(layout);
    if (!OpenRequesterFrame(record, &requester, reportNoScreen))
        return RequestClosed;
    int answer = RunRequester(record, &requester, rawKey);
    CloseRequesterFrame(record, &requester);
    return answer;
}

} // namespace

int MessageRequester(TextRecord* record, int count, const char* line1, ...)
{
    std::vector<std::string> lines;
    va_list more;
    va_start(more, line1);
    for (int i = 0; i < count; ++i)
        lines.emplace_back(i == 0 ? line1 : va_arg(more, const char*));
    va_end(more);
    int rawKey = 0;
    AskWith(record, Column({TextBox(std::move(lines)), Button(YesGadget, MessageId::Ok)}), &rawKey, true);
    return 0;
}

void DosErrorRequester(TextRecord* record, const char* text)
{
    char fault[90];
    // With an empty header the text comes as ": text".
    if (Fault(IoErr(), "", fault, sizeof fault) <= 2)
        return;
    MessageRequester(record, 3, text, GetString(MessageId::DosError), fault + 2);
}

int ChoiceRequester(TextRecord* record, int count, const char* text, const char* const labels[])
{
    RequesterGadget buttons = Column({});
    for (int i = 0; i < (count > 0 ? count : 1); ++i)
        buttons.Children.push_back(Labelled(GadgetKind::Button, static_cast<uint16_t>(i + 1), labels[i]));
    return AskWith(record, Column({TextBox({text}), buttons}), nullptr);
}

int ConfirmRequester(TextRecord* record, const char* text)
{
    return AskWith(record, Column({TextBox({text}), YesNoRow()}), nullptr);
}
