#include "frame/app_globals.h"

AppGlobals Globals;
