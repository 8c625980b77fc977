// Makes the standard control classes known. The desktop calls this once, before the first window.
#pragma once

namespace qv::headless {

void RegisterStandardControls();
// The tab control, when a program asks for the common controls.
void RegisterTabControl();

}  // namespace qv::headless
