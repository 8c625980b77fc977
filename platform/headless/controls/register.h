// Makes the standard control classes known. The desktop calls this once, before the first window.
#pragma once

namespace qv::headless {

void RegisterStandardControls();

}  // namespace qv::headless
