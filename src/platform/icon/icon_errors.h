#pragma once
// Sets what IconErr() gives in the calling thread; for this layer's files.
#include "platform/icon/icon.h"

void SetIconErr(IconError error);
