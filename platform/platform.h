// The one include through which everything above reaches the operating system. On Windows it is the SDK; elsewhere it
// is the headless layer, which declares the same names with the same meaning and keeps a desktop in memory. Code above
// this folder calls the wide functions by their full names (SetWindowTextW) and never asks which build it is in.
#pragma once

#ifdef _WIN32
#include <windows.h>
// The SDK's headers depend on windows.h, so it stands first.
#include <commctrl.h>
#include <commdlg.h>
#include <ole2.h>
#include <oleacc.h>
#include <oleauto.h>
#include <shellapi.h>
#else
#include "platform/headless/windows.h"
#endif
