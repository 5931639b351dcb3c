#pragma once
// The functions on the calendar and the clock, in the platform's own form
// of dates (dd-mmm-yy, English names). Each is a handler of the table of
// built-in functions and follows its slot convention.
#include "macro/macro_types.h"

// DATE(d): today's date; with d not 0, the day name, a blank and the date.
int32_t DateFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// TIME(ss): the time now, hh:mm:ss, or hh:mm when ss is 0.
int32_t TimeFunction(int32_t slot, MacroStack* stack, MacroContext* context);
// DAYS(date1,date2): the days from date1 to date2, positive when date2 is
// the later one; 235 when either is empty or no date. A bad date1 stops
// before date2 is evaluated.
int32_t DaysFunction(int32_t slot, MacroStack* stack, MacroContext* context);
