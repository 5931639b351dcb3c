#pragma once
// The main process: it opens what all texts share, starts the texts, serves
// their requests until none is left, and tears down in a fixed order.
#include <string>
#include <vector>

// Runs the whole program on the calling task. `arguments` are the words
// after the program's name, read as StartFromArguments says: a text for
// each file given or matching a pattern, PUBSCREEN naming the screen of
// later windows (bad arguments are ignored);
// one empty text when no file was given or none could be started. Returns
// 0 when the last text has ended, whatever happened on the way; a start-up
// failure has been reported then.
int MainProcess(const std::vector<std::string>& arguments);
