#include "host/services/data_files.h"

#include "base/text.h"
#include "host/services/json_text.h"
#include "host/services/whole_file.h"

namespace qv {

namespace {

// A document of the wrong shape: where and what. Caught where the file's name is known.
struct ShapeError {
    std::wstring message;
};

const JsonNode& Expect(const JsonNode& node, JsonNode::Kind kind, const std::wstring& place) {
    if (node.kind == kind) return node;
    JsonNode wanted;
    wanted.kind = kind;
    throw ShapeError{Format(L"%s: expected %s, found %s", place.empty() ? std::wstring(L"the document") : place,
                            wanted.KindName(), node.KindName())};
}

std::wstring PlaceBelow(const std::wstring& place, const JsonNode& child) {
    return place.empty() ? child.name : place + L"/" + child.name;
}

// Calls use(child, its place) for every child of an object.
template <class Use>
void ForEach(const JsonNode& node, const std::wstring& place, const Use& use) {
    for (const JsonNode& child : Expect(node, JsonNode::Kind::Object, place).children) {
        use(child, PlaceBelow(place, child));
    }
}

const std::wstring& ExpectText(const JsonNode& node, const std::wstring& place) {
    return Expect(node, JsonNode::Kind::Text, place).text;
}

// Reads the document and hands it to take, which may refuse its shape.
template <class Take>
std::wstring LoadDocument(const std::wstring& path, const Take& take) {
    std::string bytes;
    switch (ReadWholeFile(path, bytes)) {
        case ReadResult::Missing:
            return path + L": there is no such file";
        case ReadResult::Failed:
            return path + L": the file cannot be read";
        case ReadResult::Done:
            break;
    }
    JsonNode root;
    std::wstring problem;
    if (!ParseJson(bytes, root, problem)) return path + L": " + problem;
    try {
        take(root);
    } catch (const ShapeError& error) {
        return path + L": " + error.message;
    }
    return {};
}

void TakeValues(const JsonNode& node, const std::wstring& place, ScopeData& data) {
    data.AddKey(place);
    ForEach(node, place, [&](const JsonNode& value, const std::wstring& valuePlace) {
        const std::wstring& text = ExpectText(value, valuePlace);
        if (data.Find(place, value.name) != nullptr) throw ShapeError{valuePlace + L": given twice"};
        data.Set(place, value.name, text);
    });
}

// The names of one language: { LANGUAGE: { TEXT: TRANSLATION } }.
Dictionary TakeLanguage(const JsonNode& languages, const std::wstring& place, std::wstring_view language) {
    Dictionary result;
    ForEach(languages, place, [&](const JsonNode& each, const std::wstring& languagePlace) {
        ForEach(each, languagePlace, [&](const JsonNode& entry, const std::wstring& entryPlace) {
            const std::wstring& text = ExpectText(entry, entryPlace);
            if (EqualIgnoringCase(each.name, language)) result.insert_or_assign(entry.name, text);
        });
    });
    return result;
}

}  // namespace

std::wstring LoadDefinitions(const std::wstring& path, ScopeData& definitions) {
    return LoadDocument(path, [&](const JsonNode& root) {
        ScopeData loaded;
        ForEach(root, {}, [&](const JsonNode& option, const std::wstring& optionPlace) {
            ForEach(option, optionPlace, [&](const JsonNode& key, const std::wstring& keyPlace) {
                if (EqualIgnoringCase(key.name, L"pages")) {
                    TakeValues(key, keyPlace, loaded);
                    return;
                }
                ForEach(key, keyPlace, [&](const JsonNode& item, const std::wstring& itemPlace) {
                    TakeValues(item, itemPlace, loaded);
                });
            });
        });
        definitions = std::move(loaded);
    });
}

std::wstring LoadUsers(const std::wstring& path, MultiUserManager::UserRights& users) {
    return LoadDocument(path, [&](const JsonNode& root) {
        const JsonNode* const list = Expect(root, JsonNode::Kind::Object, {}).Find(L"users");
        if (list == nullptr) throw ShapeError{L"the document: \"users\" is missing"};
        MultiUserManager::UserRights loaded;
        ForEach(*list, L"users", [&](const JsonNode& user, const std::wstring& place) {
            auto& rights = loaded[user.name];
            const JsonNode* const granted = Expect(user, JsonNode::Kind::Object, place).Find(L"rights");
            if (granted == nullptr) return;
            const std::wstring rightsPlace = place + L"/rights";
            for (const JsonNode& right : Expect(*granted, JsonNode::Kind::Array, rightsPlace).children) {
                rights.insert(ExpectText(right, rightsPlace));
            }
        });
        users = std::move(loaded);
    });
}

std::wstring LoadTranslations(const std::wstring& path, std::wstring_view language, Dictionary& dictionary) {
    return LoadDocument(path, [&](const JsonNode& root) { dictionary = TakeLanguage(root, {}, language); });
}

std::wstring LoadUnits(const std::wstring& path, std::wstring_view language, std::unique_ptr<XUAAdmin>& database,
                       std::unique_ptr<XLMTranslDict>& names) {
    return LoadDocument(path, [&](const JsonNode& root) {
        auto loaded = std::make_unique<XUAAdmin>();
        Dictionary texts;
        Expect(root, JsonNode::Kind::Object, {});
        if (const JsonNode* const categories = root.Find(L"categories")) {
            ForEach(*categories, L"categories", [&](const JsonNode& category, const std::wstring& place) {
                std::vector<std::optional<std::wstring>> units;
                for (const JsonNode& unit : Expect(category, JsonNode::Kind::Array, place).children) {
                    const bool isEmptyPlace = unit.kind == JsonNode::Kind::Null;
                    units.push_back(isEmptyPlace ? std::nullopt : std::optional(ExpectText(unit, place)));
                }
                loaded->AddCategory(XUACategory(category.name, units));
            });
        }
        if (const JsonNode* const languages = root.Find(L"names")) texts = TakeLanguage(*languages, L"names", language);
        database = std::move(loaded);
        names = texts.empty() ? nullptr : std::make_unique<XLMTranslDict>(std::move(texts));
    });
}

}  // namespace qv
