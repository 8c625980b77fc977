#include "host/libraries/translation.h"

#include <utility>

namespace {

qv::Dictionary& CurrentDictionary() {
    static qv::Dictionary dictionary;
    return dictionary;
}

}  // namespace

std::wstring CoTranslateText(std::wstring_view text) {
    const qv::Dictionary& dictionary = CurrentDictionary();
    const auto found = dictionary.find(text);
    return found != dictionary.end() ? found->second : std::wstring(text);
}

namespace qv {

Dictionary SetDictionary(Dictionary dictionary) {
    return std::exchange(CurrentDictionary(), std::move(dictionary));
}

}  // namespace qv
