// Makes the classes of controls known that a program asks for; the standard ones are there from the start.
#pragma once

namespace qv::headless {

// The tab control, when a program asks for the common controls.
void RegisterTabControl();

}  // namespace qv::headless
