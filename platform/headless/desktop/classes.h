// Window classes by name and by atom.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/headless/desktop/user.h"

namespace qv::headless {

struct WindowClass {
    std::wstring name;
    WNDCLASSEXW info{};
    ATOM atom = 0;
};

struct ClassTable {
    std::unordered_map<std::wstring, std::vector<std::unique_ptr<WindowClass>>> classes;
    std::unordered_map<ATOM, WindowClass*> classAtoms;
    ATOM nextAtom = 0xC000;
};

[[nodiscard]] ClassTable& Classes();
// Null when the instance sees no class of that name.
[[nodiscard]] WindowClass* FindClass(HINSTANCE instance, LPCWSTR name);
// A class of the system's own, seen by everybody; its name stands in lower case.
WindowClass& AddSystemClass(const wchar_t* name, ATOM atom, WNDPROC procedure, int extra);

[[nodiscard]] std::wstring LowerCase(std::wstring_view text);

}  // namespace qv::headless
