// The attaching of an object to the window that is being created for it. For the framework's own files.
#pragma once

#include "framework/wnd.h"

namespace qv::detail {

// While it exists, the object is being created: whatever becomes of its window, it stays its creator's.
class CreationHold {
public:
    explicit CreationHold(CWnd& object);
    ~CreationHold();
    CreationHold(const CreationHold&) = delete;
    CreationHold& operator=(const CreationHold&) = delete;

private:
    CWnd& m_object;
};

// While it exists, the next window that this thread creates gets the object. The framework's own class finds the object
// by itself; for every other class a hook attaches it.
class CreationScope {
public:
    CreationScope(CWnd& object, bool ownClass);
    ~CreationScope();
    CreationScope(const CreationScope&) = delete;
    CreationScope& operator=(const CreationScope&) = delete;

private:
    CWnd& m_object;
    CreationHold m_hold;
    CWnd* m_previousToAttach;
    CWnd* m_previousBeingCreated;
    HHOOK m_previousHook;
};

}  // namespace qv::detail
