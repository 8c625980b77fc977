// What people are told when the platform refuses a window that the settings dialog cannot do without.
#pragma once

#include <string_view>

// One box without owner, since there is no window of the dialog to stand above.
void ReportFailedOpening(std::wstring_view caption);
