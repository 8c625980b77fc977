// JSON documents as the host's data files use them: trees of named texts. Numbers and booleans are taken as their text.
// The document's own order is kept. Knows nothing of what a file means.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace qv {

struct JsonNode {
    enum class Kind { Object, Array, Text, Null };
    Kind kind = Kind::Null;
    std::wstring name;  // in its object; empty in an array and at the root
    std::wstring text;  // of Kind::Text
    std::vector<JsonNode> children;

    // What kind of thing it is, for messages.
    [[nodiscard]] std::wstring_view KindName() const;
    // The first child of this name; null when there is none. Names compare exactly.
    [[nodiscard]] const JsonNode* Find(std::wstring_view childName) const;
};

// Bytes are UTF-8, with or without a byte order mark. False for a document that cannot be parsed; problem then says
// where and what, and root is left alone.
[[nodiscard]] bool ParseJson(std::string_view bytes, JsonNode& root, std::wstring& problem);
// Two blanks an indent, a line break at the end, UTF-8.
[[nodiscard]] std::string FormatJson(const JsonNode& root);
// The same on one line, without its end.
[[nodiscard]] std::string FormatJsonLine(const JsonNode& root);

}  // namespace qv
