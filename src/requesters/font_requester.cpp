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

int ChooseFont(TextRecord* record, MessageId title, std::string* name, uint16_t* size)
{
    RequesterGadget chooser;
    chooser.Kind = GadgetKind::Font;
    chooser.Id = ChooserGadget;
    chooser.Text = *name;
    chooser.Number = *size;
    RequesterWindow requester;
    requester.Title = GetString(title);
    requester.Layout = Column({chooser, Row({Button(ChooserGadget, MessageId{91}), Button(NoGadget, MessageId::Cancel)})});
    if (!OpenRequesterFrame(record, &requester, false))
        return 0;
    bool accepted = RunRequester(record, &requester, nullptr) == ChooserGadget;
    if (accepted) {
        *name = RequesterText(&requester, ChooserGadget);
        *size = static_cast<uint16_t>(RequesterNumber(&requester, ChooserGadget));
    }
    CloseRequesterFrame(record, &requester);
    return accepted ? 1 : 0;
}

void FontRequester(TextRecord* record)
{
    std::string name = record->FontName ? record->FontName : "";
    uint16_t size = record->FontSize;
    if (ChooseFont(record, MessageId{102}, &name, &size) && OpenTextFont(record, name.c_str(), size)) {
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
