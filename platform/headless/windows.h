// The headless layer as one include, in the order in which its parts build on each other.
#pragma once

#include "platform/headless/base/types.h"

#include "platform/headless/base/kernel.h"
#include "platform/headless/desktop/user.h"

#include "platform/headless/desktop/controls.h"
#include "platform/headless/desktop/dialog.h"
#include "platform/headless/desktop/gdi.h"
#include "platform/headless/desktop/menu.h"

#include "platform/headless/base/error.h"

#include "platform/headless/base/com.h"
#include "platform/headless/base/files.h"
#include "platform/headless/base/locale.h"
#include "platform/headless/base/module.h"
#include "platform/headless/base/ole_automation.h"
#include "platform/headless/base/registry.h"
#include "platform/headless/base/shell.h"
#include "platform/headless/desktop/accessible.h"
