#pragma once
// The question a modified text asks before it closes: "C_ontinue" lets the
// changes go, "_Save" saves the text under a name chosen in a file
// requester, "Cancel" keeps it open. True when the text may close. It is
// the program's close question (see requesters/close_question.h).
struct TextRecord;

bool AskAboutChanges(TextRecord* record);
