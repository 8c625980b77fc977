#include "platform/snapshot.h"

namespace qv {

// Nothing is drawn here, so there is nothing to take a picture of.
SnapshotResult SaveSnapshot(HWND, const std::wstring&) {
    return SnapshotResult::NoScreen;
}

}  // namespace qv
