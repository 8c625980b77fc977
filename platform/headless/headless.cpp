#include "platform/headless/windows.h"
