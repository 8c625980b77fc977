// The dialog's own window messages and the number range of special controls.
#pragma once

#include "platform/platform.h"

// The first two share their numbers with two messages of the platform's dialog manager (DM_SETDEFID, DM_REPOSITION):
// the dialog never sends those, and ignores a null lParam.
inline constexpr UINT WM_DYN_INITFOCUS = WM_USER + 1;     // posted by the dialog to itself: put the focus after Default
inline constexpr UINT WM_DYN_SETPLACEMENT = WM_USER + 2;  // lParam: const WINDOWPLACEMENT* for the frame
inline constexpr UINT WM_SETTINGS_MODIFIED = WM_USER + 1000;  // upwards: the user changed something

// Every page numbers its special controls from here. Above them stand the ids of the layout's own controls.
inline constexpr UINT kFirstSpecialControlId = 20000;
inline constexpr UINT kLastSpecialControlId = 29999;
