#pragma once
// Finding a menu item by the labels the user sees, as the event-script
// driver names a pick: "Project/Save text", "Find/Replace/Find next",
// "Title/Item/Sub-item".
#include "platform/display/menus.h"

#include <string>

// The number of the item that `path` names in `strip`: a title, "/", an
// item's label and, for a sub-item, "/" and its label. Labels compare with
// case ignored (ISO 8859-1), and a no-break space in a label matches a
// blank. A title that holds a "/" is matched whole. Separators are never
// found. False when nothing matches.
bool FindMenuNumber(const Menu* strip, const std::string& path, MenuNumber* number);
