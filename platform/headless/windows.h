// The headless layer as one include, in the order in which its parts build on each other.
#pragma once

#include "platform/headless/types.h"
