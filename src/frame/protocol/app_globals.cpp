#include "frame/protocol/app_globals.h"

AppGlobals Globals;

void ResetAppGlobals()
{
    InitTextList(&Globals.Texts);
    Globals.TextCount.store(0);
    Globals.ActiveText = nullptr;
    Globals.KeysOwner = nullptr;
    Globals.MenusLocked = 0;
    for (Bookmark& bookmark : Globals.Bookmarks)
        bookmark = Bookmark{};
    Globals.SearchText[0] = 0;
    Globals.ReplaceText[0] = 0;
    Globals.ScreenUseCount = 0;
    Globals.PubScreenName[0] = 0;
    Globals.IconNextTop = 1;
}
