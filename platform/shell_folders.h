// The shell's folder dialog, apart from platform.h: on Windows its headers are larger than all others together, and one
// file needs them.
#pragma once

#include "platform/platform.h"

#ifdef _WIN32
#include <shlobj.h>
#endif
