#include "requesters/file_requesters.h"

#include "frame/window/refresh.h"
#include "frame/window/text_window.h"
#include "platform/display/requester_window.h"
#include "requesters/message_requesters.h"
#include "requesters/requester_frame.h"
#include "requesters/requester_layout.h"
#include "text/record/text_record.h"
#include "text/render/render.h"

#include <string>

void FontRequester(TextRecord* record)
{
    RequesterGadget chooser;
    chooser.Kind = GadgetKind::Font;
    chooser.Id = ChooserGadget;
    chooser.Text = record->FontName ? record->FontName : "";
    chooser.Number = record->FontSize;
    RequesterWindow requester;
    requester.Title = GetString(MessageId{102});
    requester.Layout = Column({chooser, Row({Button(ChooserGadget, MessageId{91}), Button(NoGadget, MessageId::Cancel)})});
    if (!OpenRequesterFrame(record, &requester, false))
        return;
    bool accepted = RunRequester(record, &requester, nullptr) == ChooserGadget;
    std::string name = RequesterText(&requester, ChooserGadget);
    auto size = static_cast<uint16_t>(RequesterNumber(&requester, ChooserGadget));
    CloseRequesterFrame(record, &requester);
    if (accepted && OpenTextFont(record, name.c_str(), size)) {
        // The open font keeps its own copy of the name.
        record->FontName = record->TextFont->tf_Name;
        if (record->TextState & WindowOpen) {
            RelayoutText(record);
            RefreshAll(record);
        }
        return;
    }
    DosErrorRequester(record, GetString(MessageId{102}));
}
