#pragma once
// User functions, defined by "DEF NAME(ARG,...)=BODY" and shared by every
// text until the program ends.
//
// A body is compiled once, at the definition, and never changed after:
// every call runs it with a context of its own on the caller's thread, so
// two texts may run the same function at once and a function may come back
// to itself through another one. Arguments are the caller's stack
// elements; the body's other variables, its built-ins and its window are
// those of the calling text (its own variables are bound by name at each
// call). A function therefore keeps no text of its own, and closing the
// text that defined it changes nothing for it.
//
// The tables grow and are marked under the program's FunctionTableLock
// (in Globals), held exclusively by the whole of a definition, so two texts can't take the same row.
// Lookups and calls take no lock: a row is published only when complete,
// its name never changes, and a replaced row array or a redefined body is
// kept, not freed, until FreeUserFunctions, since another text may still
// be reading it.
#include "macro/macro_types.h"

#include <atomic>
#include <cstdint>

struct UserFunction;

// One row of the shared name table.
struct UserFunctionName {
    char Name[14];               // at most 13 characters
    std::atomic<uint16_t> Flags; // 0xA0 plus the number of arguments, 1 to 15
    std::atomic<bool> Hidden;    // while its new body compiles
    std::atomic<UserFunction*> Body;
};

constexpr int MaxUserFunctionName = 13;
constexpr int MaxUserArguments = 15;

// A visible user function named at `*position` and followed, after
// optional blanks, by `(`: its index, with *position behind the `(`; else
// -1 and *position unchanged. Takes no lock.
int32_t FindUserFunction(const char* text, int32_t* position);

// The name of user function `index`.
const char* NameOfUserFunction(int32_t index);

// Calls user function `index` with `arguments` argument segments behind
// the context's current token: they run in order into slot + 1 onwards,
// unresolved, then the body; its value ends at slot + 1, which is the
// result. -1 on failure, the function named in MacroScratch.
int32_t CallUserFunction(int32_t index, int32_t arguments, int32_t slot, MacroStack* stack, MacroContext* context);

// Defines or redefines the function of a text that begins "DEF ". The
// result is the function's name, as a string in the context's pool. 0 or
// the error; on error the tables are as they were, and a function being
// redefined keeps its old body.
int DefineFunction(const char* text, MacroValue* result, MacroContext* context);

// The definition of a function as given behind "DEF ", copied into `pool`:
// "" for an unknown name (case ignored). Null when memory is short.
char* CopyDefinition(const char* name, CommandPool* pool);

// The number of turns that stops a WHILE or FOR loop; 500 at the start.
uint32_t LoopIterationLimit();
// Sets the limit for every text, unless `limit` is 0; the old limit.
uint32_t ChangeLoopIterationLimit(uint32_t limit);

// Frees every function, its strings and source, and the tables, at the
// program's end when no text runs any more.
void FreeUserFunctions();
