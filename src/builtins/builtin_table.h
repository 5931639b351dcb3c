#pragma once
// The one table of the macro language's built-in functions, from the
// control forms to the functions on numbers, strings, the text, the
// settings and the scripts: one row per function (name, call flags, first
// argument rule, handler, usage line).

// Hands the table to the macro language; done once at start, before any
// text runs a command.
void InstallBuiltinFunctions();
