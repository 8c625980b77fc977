#include "host/services/json_text.h"

#include <algorithm>
#include <nlohmann/json.hpp>

#include "base/text.h"

namespace qv {

namespace {

// Deeper than any file of the host, and far from where recursion would hurt.
constexpr std::size_t kMaxDepth = 16;

// Builds the tree while the parser reads, so that a number's own spelling is kept.
class TreeBuilder final : public nlohmann::json_sax<nlohmann::json> {
public:
    bool null() override { return Add({}); }
    bool boolean(bool value) override { return AddText(value ? L"true" : L"false"); }
    bool number_integer(number_integer_t value) override { return AddText(std::to_wstring(value)); }
    bool number_unsigned(number_unsigned_t value) override { return AddText(std::to_wstring(value)); }
    bool number_float(number_float_t, const string_t& spelling) override { return AddText(FromUtf8(spelling)); }
    bool string(string_t& value) override { return AddText(FromUtf8(value)); }
    bool binary(binary_t&) override { return false; }
    bool start_object(std::size_t) override { return Open(JsonNode::Kind::Object); }
    bool start_array(std::size_t) override { return Open(JsonNode::Kind::Array); }
    bool end_object() override { return Close(); }
    bool end_array() override { return Close(); }
    bool key(string_t& name) override {
        m_name = FromUtf8(name);
        return true;
    }
    bool parse_error(std::size_t position, const std::string&, const nlohmann::detail::exception&) override {
        m_errorPosition = position;
        return false;
    }

    [[nodiscard]] JsonNode& Root() { return m_root; }
    [[nodiscard]] bool IsTooDeep() const { return m_isTooDeep; }
    // Bytes read when the parser gave up.
    [[nodiscard]] std::size_t ErrorPosition() const { return m_errorPosition; }

private:
    bool AddText(std::wstring text) {
        JsonNode node;
        node.kind = JsonNode::Kind::Text;
        node.text = std::move(text);
        return Add(std::move(node));
    }
    bool Add(JsonNode node) {
        node.name = std::exchange(m_name, {});
        if (m_open.empty()) {
            m_root = std::move(node);
        } else {
            m_open.back().children.push_back(std::move(node));
        }
        return true;
    }
    bool Open(JsonNode::Kind kind) {
        if (m_open.size() == kMaxDepth) {
            m_isTooDeep = true;
            return false;
        }
        JsonNode node;
        node.kind = kind;
        node.name = std::exchange(m_name, {});
        m_open.push_back(std::move(node));
        return true;
    }
    bool Close() {
        JsonNode node = std::move(m_open.back());
        m_open.pop_back();
        m_name = std::move(node.name);
        return Add(std::move(node));
    }

    JsonNode m_root;
    std::vector<JsonNode> m_open;
    std::wstring m_name;
    std::size_t m_errorPosition = 0;
    bool m_isTooDeep = false;
};

std::wstring PlaceOf(std::string_view bytes, std::size_t position) {
    const std::string_view before = bytes.substr(0, std::min(position > 0 ? position - 1 : 0, bytes.size()));
    const auto lines = std::count(before.begin(), before.end(), '\n');
    const std::size_t lineStart = before.rfind('\n') == std::string_view::npos ? 0 : before.rfind('\n') + 1;
    return Format(L"line %d, column %d", lines + 1, before.size() - lineStart + 1);
}

nlohmann::ordered_json ToJson(const JsonNode& node) {
    switch (node.kind) {
        case JsonNode::Kind::Text:
            return ToUtf8(node.text);
        case JsonNode::Kind::Null:
            return nullptr;
        case JsonNode::Kind::Array: {
            auto array = nlohmann::ordered_json::array();
            for (const JsonNode& child : node.children)
                array.push_back(ToJson(child));
            return array;
        }
        case JsonNode::Kind::Object:
            break;
    }
    auto object = nlohmann::ordered_json::object();
    for (const JsonNode& child : node.children) {
        // Whoever made the node kept its names unique: to look for each would be a search through all before it.
        object.get_ref<nlohmann::ordered_json::object_t&>().emplace_back(ToUtf8(child.name), ToJson(child));
    }
    return object;
}

}  // namespace

std::wstring_view JsonNode::KindName() const {
    switch (kind) {
        case Kind::Object:
            return L"an object";
        case Kind::Array:
            return L"a list";
        case Kind::Text:
            return L"a text";
        case Kind::Null:
            break;
    }
    return L"null";
}

const JsonNode* JsonNode::Find(std::wstring_view childName) const {
    const auto found =
        std::find_if(children.begin(), children.end(), [&](const JsonNode& child) { return child.name == childName; });
    return found != children.end() ? &*found : nullptr;
}

bool ParseJson(std::string_view bytes, JsonNode& root, std::wstring& problem) {
    TreeBuilder builder;
    if (!nlohmann::json::sax_parse(bytes, &builder)) {
        problem = builder.IsTooDeep() ? std::wstring(L"the document is nested too deeply")
                                      : PlaceOf(bytes, builder.ErrorPosition()) + L": the document is not valid JSON";
        return false;
    }
    root = std::move(builder.Root());
    return true;
}

std::string FormatJson(const JsonNode& root) {
    return ToJson(root).dump(2) + "\n";
}

std::string FormatJsonLine(const JsonNode& root) {
    return ToJson(root).dump();
}

}  // namespace qv
