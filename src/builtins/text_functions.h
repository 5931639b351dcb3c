#pragma once
// The handlers of the built-in functions that read and edit the text the
// command runs in. Each turns its arguments into a call of the editing,
// cursor, block or search operation of the same meaning and the answer
// into a value; the operations draw their changes as they do for keys.
#include "macro/macro_types.h"

#include <cstdint>

// Position and reading (cursor_functions.cpp, reading_functions.cpp).
int32_t LineBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t ColBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t NbLinesBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t GotoBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t BegLineBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t EndLineBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t WordLeftBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t WordRightBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t PickColBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t PickLineBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t ReadLineBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t ReadCharBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t CurrWordBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);

// Writing and deleting at the cursor, modes (edit_functions.cpp).
int32_t WriteBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t WriteTabBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t DelCharsBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t DelPrevBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t DelLeftBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t DelRightBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t DelBeginBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t DelEndBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t ModEditBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t ModifBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);

// Lines (line_functions.cpp).
int32_t InsLinesBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t SupLinesBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t CutLineBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t CatLinesBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t SortBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);

// The block (block_functions.cpp).
int32_t MarkBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t UnmarkBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t SupBlockBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t TextSelBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t BlockBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);

// Searching and the shared search settings (search_functions.cpp,
// find_settings_functions.cpp).
int32_t FindBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t ReplaceBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t SearchBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t GetFindBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t GetRepBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t SetFindBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t SetRepBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t TestCaseBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);

// Bookmarks across texts (bookmark_functions.cpp).
int32_t TraceBuiltin(int32_t slot, MacroStack* stack, MacroContext* context);
