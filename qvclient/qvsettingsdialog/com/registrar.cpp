#include "qvclient/qvsettingsdialog/com/registrar.h"

#include <optional>
#include <stdexcept>
#include <utility>
#include <vector>

#include "base/text.h"

namespace qv {
namespace {

struct ScriptError : std::runtime_error {
    using std::runtime_error::runtime_error;
};

struct ScriptValue {
    DWORD type;
    std::wstring text;
    DWORD number;
};

struct ScriptNode {
    enum class Kind { Key, ForceRemove, NoRemove, Delete, Value };
    Kind kind = Kind::Key;
    std::wstring name;
    std::optional<ScriptValue> value;  // a key's default value, or the named value
    std::vector<ScriptNode> children;
};

struct ScriptRoot {
    HKEY key;
    std::vector<ScriptNode> children;
};

std::wstring Replace(std::wstring_view text, const ScriptReplacements& replacements) {
    std::wstring result;
    while (!text.empty()) {
        const std::size_t percent = text.find(L'%');
        result += text.substr(0, percent);
        if (percent == std::wstring_view::npos) break;
        const std::size_t end = text.find(L'%', percent + 1);
        if (end == std::wstring_view::npos) throw ScriptError("a replacement without an end");
        const std::wstring_view name = text.substr(percent + 1, end - percent - 1);
        if (name.empty()) {
            result += L'%';
        } else {
            const auto found = replacements.find(name);
            if (found == replacements.end()) throw ScriptError("an unknown replacement");
            result += found->second;
        }
        text.remove_prefix(end + 1);
    }
    return result;
}

// Words, quoted texts and the three signs { } = of a script.
class Tokens {
public:
    Tokens(std::wstring_view script, const ScriptReplacements& replacements)
        : m_rest(script), m_replacements(replacements) {
        Advance();
    }
    [[nodiscard]] bool AtEnd() const { return m_kind == Kind::End; }
    [[nodiscard]] bool IsSign(wchar_t sign) const { return m_kind == Kind::Sign && m_token[0] == sign; }
    bool TakeSign(wchar_t sign) {
        if (!IsSign(sign)) return false;
        Advance();
        return true;
    }
    std::wstring TakeText() {
        if (m_kind != Kind::Word && m_kind != Kind::Quoted) throw ScriptError("a name or text is missing");
        // Replaced here and not in the script as a whole: what is put in may hold quotes and braces of its own.
        std::wstring text = Replace(m_token, m_replacements);
        Advance();
        return text;
    }
    // Takes the word when it is this one; quoted texts are never keywords.
    bool TakeWord(std::wstring_view word) {
        if (m_kind != Kind::Word || !EqualIgnoringCase(m_token, word)) return false;
        Advance();
        return true;
    }

private:
    enum class Kind { End, Word, Quoted, Sign };
    static bool IsBlank(wchar_t c) { return c == L' ' || c == L'\t' || c == L'\r' || c == L'\n'; }

    void Advance() {
        while (!m_rest.empty() && IsBlank(m_rest.front()))
            m_rest.remove_prefix(1);
        m_token.clear();
        if (m_rest.empty()) {
            m_kind = Kind::End;
        } else if (m_rest.front() == L'\'') {
            ReadQuoted();
        } else if (IsLoneBrace() || m_rest.front() == L'=') {
            m_kind = Kind::Sign;
            m_token = m_rest.front();
            m_rest.remove_prefix(1);
        } else {
            ReadWord();
        }
    }
    // Braces are signs when they stand alone; {3C5A8E23-...} is a word.
    [[nodiscard]] bool IsLoneBrace() const {
        return (m_rest.front() == L'{' || m_rest.front() == L'}') && (m_rest.size() == 1 || IsBlank(m_rest[1]));
    }
    void ReadWord() {
        m_kind = Kind::Word;
        std::size_t length = 0;
        while (length < m_rest.size() && !IsBlank(m_rest[length]))
            ++length;
        m_token = m_rest.substr(0, length);
        m_rest.remove_prefix(length);
    }
    void ReadQuoted() {
        m_kind = Kind::Quoted;
        for (std::size_t i = 1; i < m_rest.size(); ++i) {
            if (m_rest[i] != L'\'') {
                m_token += m_rest[i];
            } else if (i + 1 < m_rest.size() && m_rest[i + 1] == L'\'') {
                m_token += m_rest[i++];
            } else {
                m_rest.remove_prefix(i + 1);
                return;
            }
        }
        throw ScriptError("a text without an end");
    }

    std::wstring_view m_rest;
    const ScriptReplacements& m_replacements;
    std::wstring m_token;
    Kind m_kind = Kind::End;
};

class Parser {
public:
    Parser(std::wstring_view script, const ScriptReplacements& replacements) : m_tokens(script, replacements) {}

    std::vector<ScriptRoot> Parse() {
        std::vector<ScriptRoot> roots;
        while (!m_tokens.AtEnd()) {
            const HKEY key = ParseRoot();
            if (!m_tokens.IsSign(L'{')) throw ScriptError("a root key without content");
            roots.push_back({key, ParseChildren()});
            for (const ScriptNode& node : roots.back().children) {
                if (node.kind == ScriptNode::Kind::Value) throw ScriptError("a value of a root key");
            }
        }
        return roots;
    }

private:
    struct RootName {
        std::wstring_view shortName, longName;
        HKEY key;
    };

    HKEY ParseRoot() {
        const RootName names[] = {
            {L"HKCR", L"HKEY_CLASSES_ROOT", HKEY_CLASSES_ROOT},
            {L"HKCU", L"HKEY_CURRENT_USER", HKEY_CURRENT_USER},
            {L"HKLM", L"HKEY_LOCAL_MACHINE", HKEY_LOCAL_MACHINE},
            {L"HKU", L"HKEY_USERS", HKEY_USERS},
        };
        const std::wstring word = m_tokens.TakeText();
        for (const RootName& name : names) {
            if (EqualIgnoringCase(word, name.shortName) || EqualIgnoringCase(word, name.longName)) return name.key;
        }
        throw ScriptError("an unknown root key");
    }

    std::vector<ScriptNode> ParseChildren() {
        std::vector<ScriptNode> children;
        if (!m_tokens.TakeSign(L'{')) return children;
        while (!m_tokens.TakeSign(L'}'))
            children.push_back(ParseNode());
        return children;
    }

    ScriptNode ParseNode() {
        ScriptNode node;
        if (m_tokens.TakeWord(L"ForceRemove")) {
            node.kind = ScriptNode::Kind::ForceRemove;
        } else if (m_tokens.TakeWord(L"NoRemove")) {
            node.kind = ScriptNode::Kind::NoRemove;
        } else if (m_tokens.TakeWord(L"Delete")) {
            node.kind = ScriptNode::Kind::Delete;
        } else if (m_tokens.TakeWord(L"val")) {
            node.kind = ScriptNode::Kind::Value;
        }
        node.name = m_tokens.TakeText();
        if (m_tokens.TakeSign(L'=')) node.value = ParseValue();
        if (node.kind == ScriptNode::Kind::Value) {
            if (!node.value) throw ScriptError("a named value without its content");
            return node;
        }
        node.children = ParseChildren();
        return node;
    }

    ScriptValue ParseValue() {
        if (m_tokens.TakeWord(L"s")) return {REG_SZ, m_tokens.TakeText(), 0};
        if (m_tokens.TakeWord(L"e")) return {REG_EXPAND_SZ, m_tokens.TakeText(), 0};
        if (m_tokens.TakeWord(L"d")) return {REG_DWORD, {}, static_cast<DWORD>(LeadingInteger64(m_tokens.TakeText()))};
        throw ScriptError("an unknown value type");
    }

    Tokens m_tokens;
};

// A registry error on its way out.
struct RegistryError {
    LSTATUS status;
};

void Check(LSTATUS status) {
    if (status != ERROR_SUCCESS) throw RegistryError{status};
}

class Key {
public:
    static Key Create(HKEY parent, const std::wstring& name) {
        Key key;
        Check(RegCreateKeyExW(parent, name.c_str(), 0, nullptr, REG_OPTION_NON_VOLATILE, KEY_READ | KEY_WRITE, nullptr,
                              &key.m_key, nullptr));
        return key;
    }
    // Without a key when there is none of this name.
    static Key Open(HKEY parent, const std::wstring& name) {
        Key key;
        const LSTATUS status = RegOpenKeyExW(parent, name.c_str(), 0, KEY_READ | KEY_WRITE, &key.m_key);
        if (status != ERROR_FILE_NOT_FOUND) Check(status);
        return key;
    }
    Key(Key&& other) noexcept : m_key(std::exchange(other.m_key, nullptr)) {}
    Key(const Key&) = delete;
    Key& operator=(const Key&) = delete;
    ~Key() {
        if (m_key != nullptr) RegCloseKey(m_key);
    }
    [[nodiscard]] HKEY Get() const noexcept { return m_key; }
    void Set(const std::wstring& name, const ScriptValue& value) const {
        const wchar_t* valueName = name.empty() ? nullptr : name.c_str();
        if (value.type == REG_DWORD) {
            Check(RegSetValueExW(m_key, valueName, 0, REG_DWORD, reinterpret_cast<const BYTE*>(&value.number),
                                 sizeof value.number));
        } else {
            Check(RegSetValueExW(m_key, valueName, 0, value.type, reinterpret_cast<const BYTE*>(value.text.c_str()),
                                 static_cast<DWORD>((value.text.size() + 1) * sizeof(wchar_t))));
        }
    }
    [[nodiscard]] bool HasSubKeys() const {
        DWORD count = 0;
        Check(RegQueryInfoKeyW(m_key, nullptr, nullptr, nullptr, &count, nullptr, nullptr, nullptr, nullptr, nullptr,
                               nullptr, nullptr));
        return count != 0;
    }

private:
    Key() = default;
    HKEY m_key = nullptr;
};

void RemoveTree(HKEY parent, const std::wstring& name) {
    const LSTATUS status = RegDeleteTreeW(parent, name.c_str());
    if (status != ERROR_FILE_NOT_FOUND) Check(status);
}

void Register(HKEY parent, const ScriptNode& node) {
    if (node.kind == ScriptNode::Kind::Delete || node.kind == ScriptNode::Kind::ForceRemove) {
        RemoveTree(parent, node.name);
        if (node.kind == ScriptNode::Kind::Delete) return;
    }
    const Key key = Key::Create(parent, node.name);
    if (node.value) key.Set({}, *node.value);
    for (const ScriptNode& child : node.children) {
        if (child.kind == ScriptNode::Kind::Value) {
            key.Set(child.name, *child.value);
        } else {
            Register(key.Get(), child);
        }
    }
}

void Unregister(HKEY parent, const ScriptNode& node) {
    if (node.kind == ScriptNode::Kind::Delete || node.kind == ScriptNode::Kind::Value) return;
    if (node.kind == ScriptNode::Kind::ForceRemove) {
        RemoveTree(parent, node.name);
        return;
    }
    bool empty = false;
    {
        const Key key = Key::Open(parent, node.name);
        if (key.Get() == nullptr) return;
        for (const ScriptNode& child : node.children)
            Unregister(key.Get(), child);
        if (node.kind == ScriptNode::Kind::NoRemove) {
            for (const ScriptNode& child : node.children) {
                if (child.kind == ScriptNode::Kind::Value) RegDeleteValueW(key.Get(), child.name.c_str());
            }
        }
        empty = !key.HasSubKeys();
    }
    if (empty && node.kind == ScriptNode::Kind::Key) Check(RegDeleteKeyW(parent, node.name.c_str()));
}

}  // namespace

HRESULT ApplyRegistryScript(std::wstring_view script, const ScriptReplacements& replacements, RegistryAction action) {
    try {
        for (const ScriptRoot& root : Parser(script, replacements).Parse()) {
            for (const ScriptNode& node : root.children) {
                if (action == RegistryAction::Register) {
                    Register(root.key, node);
                } else {
                    Unregister(root.key, node);
                }
            }
        }
        return S_OK;
    } catch (const ScriptError&) {
        return DISP_E_EXCEPTION;
    } catch (const RegistryError& error) {
        return HRESULT_FROM_WIN32(static_cast<unsigned long>(error.status));
    }
}

}  // namespace qv
