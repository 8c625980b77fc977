// The examples of a page of documentation: a definition tree in a ```json block, stored values in a ```json values
// block after it, and what the page says comes of them, a list entry each.
#pragma once

#include <ostream>
#include <string>
#include <vector>

struct PageExample {
    int line = 0;  // of the first block, from 1
    std::string definitions;
    std::string values;
    std::vector<std::wstring> claims;  // without the list mark
};

void PrintTo(const PageExample& example, std::ostream* out);

[[nodiscard]] std::vector<PageExample> LoadExamples(const std::wstring& file);

// The text that matches the star of the pattern, for patterns whose stars stand for everything; empty when it does not.
[[nodiscard]] std::vector<std::wstring> Match(const std::wstring& text, const std::wstring& pattern);
