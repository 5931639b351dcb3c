#include "builtins/program_functions.h"

#include "macro/handler_values.h"
#include "macro/evaluator.h"
#include "platform/locale/default_locale.h"

int32_t VersionFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    return StringResult(slot, "5.00", stack, context);
}

int32_t LanguageFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    Locale* locale = OpenLocale(nullptr);
    if (!locale)
        return FailHandler(context, MessageId::NotEnoughMemory);
    const int32_t result = StringResult(slot, locale->loc_LanguageName.c_str(), stack, context);
    CloseLocale(locale);
    return result;
}

