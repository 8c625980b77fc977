#include "tests/docs/example_page.h"

#include <sstream>

#include "base/text.h"
#include "host/services/whole_file.h"

void PrintTo(const PageExample& example, std::ostream* out) {
    *out << "the example in line " << example.line;
}

std::vector<PageExample> LoadExamples(const std::wstring& file) {
    std::string bytes;
    std::vector<PageExample> examples;
    if (qv::ReadWholeFile(file, bytes) != qv::ReadResult::Done) return examples;
    std::istringstream page(bytes);
    std::string* block = nullptr;
    bool claiming = false;  // only the list right below an example is about it
    int number = 0;
    for (std::string line; std::getline(page, line);) {
        ++number;
        if (block != nullptr && line == "```") {
            block = nullptr;
            claiming = true;
        } else if (block != nullptr) {
            *block += line + '\n';
        } else if (line == "```json") {
            examples.emplace_back().line = number;
            block = &examples.back().definitions;
        } else if (line == "```json values" && claiming) {
            block = &examples.back().values;
        } else if (claiming && line.starts_with("- ")) {
            examples.back().claims.push_back(qv::FromUtf8(line.substr(2)));
        } else {
            claiming = false;
        }
    }
    return examples;
}

std::vector<std::wstring> Match(const std::wstring& text, const std::wstring& pattern) {
    std::vector<std::wstring> found;
    std::size_t at = 0;
    std::size_t from = 0;
    for (;;) {
        const std::size_t star = pattern.find(L'*', from);
        const std::wstring fixed = pattern.substr(from, star == std::wstring::npos ? star : star - from);
        const bool last = star == std::wstring::npos;
        const std::size_t place =
            from == 0 ? (text.starts_with(fixed) ? 0 : std::wstring::npos)
            : last    ? (text.size() >= at + fixed.size() && text.ends_with(fixed) ? text.size() - fixed.size()
                                                                                   : std::wstring::npos)
                      : text.find(fixed, at);
        if (place == std::wstring::npos) return {};
        if (from != 0) found.push_back(text.substr(at, place - at));
        if (last) return found;
        at = place + fixed.size();
        from = star + 1;
    }
}
