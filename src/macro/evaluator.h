#pragma once
// Running a command: Evaluate compiles and runs one line against a text's
// variables, RunTokens is the recursive interpreter over the value stack,
// and the rest serves the handlers of built-in functions.
#include "macro/macro_types.h"

struct TextRecord;
struct RexxMsg;
struct CommandPool;

// The one way in. A text beginning "DEF " exactly defines a user function
// (its value is the function's name); anything else compiles and runs.
// On success `result` is resolved, an integer or a string, and 0 comes
// back; otherwise the MessageId of the fault, with the failing function
// named in the text's MacroScratch when a function failed. Strings made
// on the way belong to `pool`, which the caller frees after using the
// result. Runs in the process that owns `record`.
int Evaluate(TextRecord* record, const char* text, MacroValue* result, CommandPool* pool, RexxMsg* rexxMsg);

// Runs the context's compiled tokens from the start on a fresh stack.
// The program must leave exactly one value (216 otherwise), which goes to
// `result` unresolved. The error is the context's.
void Execute(MacroValue* result, MacroContext* context);

// Runs the tokens behind Count up to the end of one segment, pushing above
// `slot`; the result is the new top of the stack, 0 on error. With no
// stack it only walks over the segment. Stops with 205 rather than run out
// of the thread's stack.
int32_t RunTokens(int32_t slot, MacroStack* stack, MacroContext* context);
// RunTokens over `segments` segments in a row, each pushing above `slot`;
// the top left by the last.
int32_t RunSegments(int32_t slot, MacroStack* stack, MacroContext* context, int32_t segments);
// One turn of a loop: the `actions` segments behind Count, each pushing
// above slot + 1, then the loop's test, the segment behind token `test`,
// at `slot`. The test's value is at slot + 1, and Count behind the test,
// unless the error is set. One run of tokens for the whole turn.
void RunLoopTurn(int32_t slot, MacroStack* stack, MacroContext* context, int32_t actions, int32_t test);

// For handlers: run the next argument into *slotRef + 1 and check it. An
// integer (a variable's value taken; 232 for a string) or a string (233
// for anything else; null on failure). *slotRef is left as it was.
int32_t NextIntegerArgument(int32_t* slotRef, MacroStack* stack, MacroContext* context);
char* NextStringArgument(int32_t* slotRef, MacroStack* stack, MacroContext* context);

// MacroScratch of `record` becomes "Function NAME" for the function of a
// token code: DEF for 26, a built-in's row from 27, a user function's
// from 153. Nothing without a record.
void RecordFunctionName(TextRecord* record, int32_t code);
