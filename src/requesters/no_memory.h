#pragma once
// The report of an exhausted allocation in a text: "Not enough memory".
// Until requester windows exist this is its console form, one line on
// standard error; callers already treat it as the shown message and give
// 0 or false without reporting again.

struct TextRecord;

void NoMemoryRequester(TextRecord* record);
