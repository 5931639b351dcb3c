#pragma once
// The report of an exhausted allocation in a text: "Not enough memory" in
// a requester in front of it. Callers treat it as the shown message and
// give 0 or false without reporting again.

struct TextRecord;

void NoMemoryRequester(TextRecord* record);
