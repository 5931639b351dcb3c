#include "builtins/toolbar_functions.h"

#include "config/toolbars.h"
#include "frame/protocol/command_message.h"
#include "frame/protocol/send.h"
#include "macro/handler_values.h"

int32_t ToolbarFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    char* name = stack->Values[slot].String;
    if (name[0] == '\0') {
        SendToMain(context->Text, CMD_RAISE_TOOLBARS, 0);
        return StringResult(slot, FirstToolbarName(), stack, context);
    }
    const intptr_t answer = SendToMainWait(context->Text, CMD_LOAD_TOOLBAR, reinterpret_cast<intptr_t>(name));
    return IntegerResult(slot, static_cast<int32_t>(answer), stack);
}
