#include "builtins/date_functions.h"

#include "macro/handler_values.h"
#include "macro/evaluator.h"
#include "platform/dos/dates.h"

#include <cstring>
#include <string>

namespace {

// The present moment with the wanted texts; false when the platform can't
// show it.
bool DescribeNow(char* day, char* date, char* time)
{
    struct DateTime now{};
    DateStamp(&now.dat_Stamp);
    now.dat_StrDay = day;
    now.dat_StrDate = date;
    now.dat_StrTime = time;
    return DateToStr(&now);
}

// The stamp of midnight on a date a user wrote; false when it is empty or
// no date.
bool ReadDate(char* text, struct DateStamp* stamp)
{
    struct DateTime date{};
    date.dat_StrDate = text;
    if (*text == '\0' || !StrToDate(&date))
        return false;
    *stamp = date.dat_Stamp;
    return true;
}

} // namespace

int32_t DateFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    char day[LEN_DATSTRING], date[LEN_DATSTRING];
    if (!DescribeNow(day, date, nullptr))
        return FailHandler(context, MessageId::IncorrectArgumentValue);
    if (stack->Values[slot].Integer == 0)
        return StringResult(slot, date, stack, context);
    const std::string both = std::string(day) + " " + date;
    return StringResult(slot, both.data(), both.size(), stack, context);
}

int32_t TimeFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    char time[LEN_DATSTRING];
    if (!DescribeNow(nullptr, nullptr, time))
        return FailHandler(context, MessageId::IncorrectArgumentValue);
    const size_t hoursAndMinutes = 5;
    const size_t length = stack->Values[slot].Integer == 0 ? hoursAndMinutes : std::strlen(time);
    return StringResult(slot, time, length, stack, context);
}

int32_t DaysFunction(int32_t slot, MacroStack* stack, MacroContext* context)
{
    struct DateStamp first, second;
    if (!ReadDate(stack->Values[slot].String, &first))
        return FailHandler(context, MessageId::IncorrectDate);
    char* text = NextStringArgument(&slot, stack, context);
    if (!text)
        return -1;
    if (!ReadDate(text, &second))
        return FailHandler(context, MessageId::IncorrectDate);
    return IntegerResult(slot, static_cast<int32_t>(CompareDates(&first, &second)), stack);
}
