#pragma once
// A string handed to another process or kept in the shared menu state.

// A copy from AllocVec (MEMF_SHARED), freed with FreeVec; null without
// memory.
char* SharedCopy(const char* text);
