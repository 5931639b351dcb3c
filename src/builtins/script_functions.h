#pragma once
// The built-in functions on scripts and host ports: CALL, LOCK, REXXPATH,
// REXXPORT, SENDCMD, TEXTS and UNLOCK.
#include "macro/macro_types.h"

int32_t CallFunction(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t LockFunction(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t RexxPathFunction(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t RexxPortFunction(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t SendCommandFunction(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t TextsFunction(int32_t slot, MacroStack* stack, MacroContext* context);
int32_t UnlockFunction(int32_t slot, MacroStack* stack, MacroContext* context);
