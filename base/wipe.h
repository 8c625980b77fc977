// Overwriting what must not stay in memory: plain passwords and the copies that are made of them on their way.
#pragma once

#include <string>

namespace qv {

// Overwrites all that the text's memory may hold and empties it. The writes are volatile, so that they are not
// optimised away.
inline void Wipe(std::wstring& text) noexcept {
    text.resize(text.capacity());  // what an earlier, longer text left too; needs no new memory
    volatile wchar_t* const characters = text.data();
    for (std::size_t i = 0; i < text.size(); ++i)
        characters[i] = L'\0';
    text.clear();
}

}  // namespace qv
