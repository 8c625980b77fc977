// The headless layer as one include, in the order in which its parts build on each other.
#pragma once

#include "platform/headless/types.h"

#include "platform/headless/kernel.h"
#include "platform/headless/user.h"

#include "platform/headless/controls.h"
#include "platform/headless/dialog.h"
#include "platform/headless/gdi.h"
#include "platform/headless/menu.h"

#include "platform/headless/error.h"

#include "platform/headless/accessible.h"
#include "platform/headless/com.h"
#include "platform/headless/files.h"
#include "platform/headless/locale.h"
#include "platform/headless/module.h"
#include "platform/headless/ole_automation.h"
#include "platform/headless/registry.h"
#include "platform/headless/shell.h"
