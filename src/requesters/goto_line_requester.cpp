#include "requesters/input_requesters.h"

#include "platform/display/requester_window.h"
#include "requesters/requester_frame.h"
#include "requesters/requester_layout.h"
#include "text/record/text_record.h"

int32_t GotoLineRequester(TextRecord* record)
{
    int32_t unchanged = record->CursorLine + 1;
    RequesterGadget number;
    number.Kind = GadgetKind::Integer;
    number.Id = NumberGadget;
    number.Number = unchanged;
    RequesterWindow requester;
    requester.Layout = Column({TextBox({GetString(MessageId{173})}),
        Row({number, Labelled(GadgetKind::Check, RelativeGadget, GetString(MessageId{245}))}),
        Row({Button(YesGadget, MessageId::Yes), Button(OtherGadget, MessageId{163}),
            Button(CancelGadget, MessageId::Cancel)})});
    requester.Widens = true;
    if (!OpenRequesterFrame(record, &requester, false))
        return unchanged;
    ActivateRequesterGadget(&requester, NumberGadget);
    int32_t wanted = unchanged;
    for (bool done = false; !done;) {
        switch (RunRequester(record, &requester, nullptr)) {
        case YesGadget: {
            int32_t n = RequesterNumber(&requester, NumberGadget);
            wanted = RequesterNumber(&requester, RelativeGadget) ? record->CursorLine + n + 1 : n;
            done = true;
            break;
        }
        case OtherGadget:
            SetRequesterNumber(&requester, NumberGadget, 0);
            ActivateRequesterGadget(&requester, NumberGadget);
            break;
        case CancelGadget:
        case NoGadget:
        case RequestClosed:
            done = true;
            break;
        default:
            break;
        }
    }
    CloseRequesterFrame(record, &requester);
    return wanted;
}
