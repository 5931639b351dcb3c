#pragma once
// The compiled form of one user function. Never changed once published.
#include "macro/command_pool.h"
#include "macro/macro_types.h"

struct UserFunction {
    char* Source;        // the definition behind "DEF ": name, arguments, `=`, body
    CommandPool Strings; // the body's string literals
    int32_t ArgumentCount;
    int32_t LocalCount;     // the body's own variables
    char (*LocalNames)[24]; // their names, bound in the calling text at each call
    MacroToken* Tokens;     // the body, end token included; token 21 indexes LocalNames
};

// Frees a function's blocks and the function; null is allowed.
void FreeUserFunctionBody(UserFunction* function);

// The changes a definition makes to the shared tables, each under
// FunctionTableLock held exclusively.
struct UserFunctionName;
// Room for one more row; false when memory is short or the table is full.
bool GrowUserFunctionRows();
// A cleared row of no table yet; null when memory is short.
UserFunctionName* NewUserFunctionRow();
// Fills in a new row and makes it visible as the last one; its index.
int32_t PublishUserFunction(UserFunctionName* row, UserFunction* body, int32_t arguments);
// Gives an existing row a new body; the old one is kept until the end.
void ReplaceUserFunction(UserFunctionName* row, UserFunction* body);
UserFunctionName* UserFunctionRow(int32_t index);
