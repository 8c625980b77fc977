// The headless layer as one include, in the order in which its parts build on each other.
#pragma once

#include "platform/headless/types.h"

#include "platform/headless/kernel.h"
#include "platform/headless/user.h"

#include "platform/headless/dialog.h"
#include "platform/headless/gdi.h"
#include "platform/headless/menu.h"
