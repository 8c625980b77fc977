#include "framework/handle_map.h"

#include <mutex>
#include <unordered_map>

namespace qv::detail {
namespace {

// Never destroyed: windows and objects may outlive the program's static objects.
struct PermanentMap {
    std::mutex mutex;
    std::unordered_map<HWND, CWnd*> objects;
    std::unordered_map<HWND, WNDPROC> passedOn;
};

PermanentMap& Permanent() {
    static auto* map = new PermanentMap;
    return *map;
}

}  // namespace

CWnd* FindPermanent(HWND handle) {
    PermanentMap& map = Permanent();
    const std::lock_guard lock(map.mutex);
    const auto found = map.objects.find(handle);
    return found != map.objects.end() ? found->second : nullptr;
}

void AddPermanent(HWND handle, CWnd* object) {
    PermanentMap& map = Permanent();
    const std::lock_guard lock(map.mutex);
    map.objects[handle] = object;
}

void RemovePermanent(HWND handle, const CWnd* object) {
    PermanentMap& map = Permanent();
    const std::lock_guard lock(map.mutex);
    const auto found = map.objects.find(handle);
    if (found != map.objects.end() && found->second == object) map.objects.erase(found);
}

void AddPassedOn(HWND handle, WNDPROC procedure) {
    PermanentMap& map = Permanent();
    const std::lock_guard lock(map.mutex);
    map.passedOn[handle] = procedure;
}

WNDPROC FindPassedOn(HWND handle, UINT message) {
    PermanentMap& map = Permanent();
    const std::lock_guard lock(map.mutex);
    const auto found = map.passedOn.find(handle);
    if (found == map.passedOn.end()) return nullptr;
    const WNDPROC procedure = found->second;
    if (message == WM_NCDESTROY) map.passedOn.erase(found);
    return procedure;
}

}  // namespace qv::detail
