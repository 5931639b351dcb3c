#include "requesters/file_requesters.h"

#include "frame/protocol/app_globals.h"
#include "frame/window/report.h"
#include "platform/display/requester_window.h"
#include "platform/dos/paths.h"
#include "platform/utility/strings.h"
#include "requesters/requester_frame.h"
#include "requesters/requester_layout.h"
#include "text/record/text_record.h"

#include <algorithm>

std::atomic<int> FileReqLeft{0}, FileReqTop{0}, FileReqWidth{0}, FileReqHeight{0};

namespace {

void PlaceFirstFileRequester()
{
    if (FileReqHeight.load() != 0 || !Globals.Screen)
        return;
    int width = Globals.Screen->Width;
    int height = Globals.Screen->Height;
    FileReqWidth = std::max(width / 3, 320);
    FileReqHeight = 2 * (height / 3);
    FileReqTop = (height - FileReqHeight) / 2;
    FileReqLeft = (width - FileReqWidth) / 2;
}

} // namespace

int FileRequester(TextRecord* record, const char* title, char* drawer, char* file)
{
    if (!Globals.Screen)
        return 0;
    PlaceFirstFileRequester();
    RequesterGadget chooser;
    chooser.Kind = GadgetKind::File;
    chooser.Id = ChooserGadget;
    chooser.Drawer = drawer;
    chooser.Text = file;
    chooser.Save = title[0] == 'S';
    RequesterWindow requester;
    requester.Title = title;
    requester.Layout = Column({chooser, Row({Button(ChooserGadget, MessageId{91}), Button(NoGadget, MessageId::Cancel)})});
    requester.Left = FileReqLeft;
    requester.Top = FileReqTop;
    requester.Width = FileReqWidth;
    requester.Height = FileReqHeight;
    if (!OpenRequesterFrame(record, &requester, false))
        return 0;
    bool accepted = RunRequester(record, &requester, nullptr) == ChooserGadget;
    CloseRequesterFrame(record, &requester);
    if (!accepted)
        return 0;
    Strlcpy(drawer, RequesterDrawer(&requester, ChooserGadget).c_str(), FileDirectorySize);
    Strlcpy(file, RequesterText(&requester, ChooserGadget).c_str(), FileNameSize);
    FileReqLeft = requester.Left;
    FileReqTop = requester.Top;
    FileReqWidth = requester.Width;
    FileReqHeight = requester.Height;
    return 1;
}

int FileRequesterId(TextRecord* record, MessageId title, char* drawer, char* file)
{
    return FileRequester(record, GetString(title), drawer, file);
}

int AskFile(TextRecord* record, MessageId title, char* drawer, char* file, char* path)
{
    char empty[FileNameSize] = "";
    char* name = file ? file : empty;
    if (!FileRequesterId(record, title, drawer, name))
        return 0;
    JoinPath(drawer, name, path);
    return 1;
}

int AskFileFrom(TextRecord* record, MessageId title, const char* directory, const char* file, char* path)
{
    char drawer[FileDirectorySize];
    char name[FileNameSize];
    Strlcpy(drawer, directory, sizeof drawer);
    Strlcpy(name, file, sizeof name);
    return AskFile(record, title, drawer, name, path);
}
