#pragma once
// The control forms and the functions about the language itself, as
// handlers of the table of built-in functions. Each follows the slot
// convention of function_table.h.
#include "macro/macro_types.h"

// IF(test,actyes,actno): runs one branch; its value, a reference included.
int32_t IfForm(int32_t slot, MacroStack* stack, MacroContext* context);
// WHILE(cond,act[,...]): the loop of RunLoop; the value 0.
int32_t WhileForm(int32_t slot, MacroStack* stack, MacroContext* context);
// FOR(init,test,act[,...]): init once, then the loop; the value 0.
int32_t ForForm(int32_t slot, MacroStack* stack, MacroContext* context);
// INIT(var[,...]) and RESET(var1[,...]): empty each variable, INIT also
// untypes it; the number of variables.
int32_t InitForm(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t ResetForm(int32_t slot, MacroStack* stack, MacroContext* context);
// SECURITY(loops): the old loop limit; a new one unless 0.
int32_t SecurityForm(int32_t slot, MacroStack* stack, MacroContext* context);
// EXEC("command"): compiles and runs a string against the same text.
int32_t ExecForm(int32_t slot, MacroStack* stack, MacroContext* context);
// READDEF("function"): a user function's definition, "" if there is none.
int32_t ReadDefForm(int32_t slot, MacroStack* stack, MacroContext* context);
