#pragma once
// The table of built-in English messages, read without the catalog. Help
// uses it for its page names and the menu command MENU compares labels with
// it, so these are the same words in every language.

#include "services/message_id.h"

// The built-in text of `id`: ISO 8859-1, zero-terminated, constant for the
// life of the program. An id outside 0..MessageCount-1 gives "" (never null).
const char* GetBuiltInString(MessageId id);
