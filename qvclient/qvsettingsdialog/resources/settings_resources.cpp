#include "qvclient/qvsettingsdialog/resources/settings_resources.h"

#include <array>
#include <cstring>

#include "base/dialog_template_writer.h"
#include "platform/module_resources.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"

namespace {

struct ButtonTemplate {
    const wchar_t* caption;
    WORD id;
    int x, y;
    DWORD kind;
};

struct DialogTemplate {
    WORD id;
    WORD language;
    int cx, cy;
    DWORD style;
    const wchar_t* caption;
    std::vector<ButtonTemplate> buttons;
};

constexpr WORD Language(unsigned primary, unsigned sub) {
    return static_cast<WORD>((sub << 10U) | primary);
}

constexpr WORD kEnglish = Language(0x09, 0x01);

const std::vector<DialogTemplate>& DialogTemplates() {
#define QV_DIALOG(id, language, subLanguage, cx, cy, style, caption) \
    {id, Language(language, subLanguage), cx, cy, static_cast<DWORD>(style), L"" caption, {
#define QV_UNTITLED_DIALOG(id, language, subLanguage, cx, cy, style) \
    QV_DIALOG(id, language, subLanguage, cx, cy, style, "")
#define QV_BUTTON(caption, id, x, y, kind) {L"" caption, id, x, y, static_cast<DWORD>(kind)},
#define QV_DIALOG_END \
    }                 \
    }                 \
    ,
    static const std::vector<DialogTemplate> templates{
#include "qvclient/qvsettingsdialog/resources/dialog_templates.inc"
    };
#undef QV_DIALOG
#undef QV_UNTITLED_DIALOG
#undef QV_BUTTON
#undef QV_DIALOG_END
    return templates;
}

std::vector<BYTE> BuildDialog(const DialogTemplate& dialog) {
    using Writer = qv::DialogTemplateWriter;
    Writer out(Writer::Layout::Extended, dialog.style | DS_SETFONT, dialog.caption, {0, 0, dialog.cx, dialog.cy},
               {.points = QV_DIALOG_FONT_POINTS,
                .weight = QV_DIALOG_FONT_WEIGHT,
                .charset = QV_DIALOG_FONT_CHARSET,
                .face = L"" QV_DIALOG_FONT});
    for (const ButtonTemplate& button : dialog.buttons) {
        out.Add(Writer::Button, button.id, button.kind | static_cast<DWORD>(WS_CHILD | WS_VISIBLE | WS_TABSTOP),
                button.caption, {button.x, button.y, QV_BUTTON_WIDTH, QV_BUTTON_HEIGHT});
    }
    const auto* bytes = reinterpret_cast<const BYTE*>(out.Bytes().data());
    return {bytes, bytes + out.Bytes().size()};
}

// Little-endian fields of a resource, each put where the last one ended.
class Writer {
public:
    void Word(unsigned value) {
        m_bytes.push_back(static_cast<BYTE>(value & 0xFFU));
        m_bytes.push_back(static_cast<BYTE>((value >> 8U) & 0xFFU));
    }
    void Units(std::wstring_view text) {
        for (const wchar_t unit : text)
            Word(static_cast<unsigned>(unit));
    }
    void Bytes(std::span<const unsigned char> bytes) { m_bytes.insert(m_bytes.end(), bytes.begin(), bytes.end()); }
    [[nodiscard]] std::vector<BYTE> Take() { return std::move(m_bytes); }

private:
    std::vector<BYTE> m_bytes;
};

// String tables come in blocks of sixteen, each text with its length in front.
constexpr unsigned kStringsPerBlock = 16;

WORD StringBlockId(unsigned stringId) {
    return static_cast<WORD>(stringId / kStringsPerBlock + 1);
}

std::vector<BYTE> BuildStringBlock(unsigned stringId, std::wstring_view text) {
    Writer out;
    for (unsigned slot = 0; slot < kStringsPerBlock; ++slot) {
        if (slot != stringId % kStringsPerBlock) {
            out.Word(0);
            continue;
        }
        out.Word(static_cast<unsigned>(text.size()));
        out.Units(text);
    }
    return out.Take();
}

// An icon file holds a directory and pictures; a module holds a group, whose entries name pictures by number.
void AppendIcon(std::vector<ModuleResource>& resources, std::span<const unsigned char> file, WORD groupId) {
    constexpr std::size_t kHeader = 6;
    constexpr std::size_t kFileEntry = 16;
    constexpr std::size_t kSharedPartOfEntry = 12;  // what both forms of an entry begin with
    const auto dword = [&file](std::size_t at) {
        DWORD value = 0;
        std::memcpy(&value, &file[at], sizeof value);
        return value;
    };

    Writer group;
    group.Bytes(file.first(kHeader));
    const std::size_t count = file[4];
    for (std::size_t i = 0; i < count; ++i) {
        const std::size_t entry = kHeader + i * kFileEntry;
        const auto pictureId = static_cast<WORD>(i + 1);
        group.Bytes(file.subspan(entry, kSharedPartOfEntry));
        group.Word(pictureId);
        const auto picture = file.subspan(dword(entry + 12), dword(entry + 8));
        resources.push_back({3, {}, pictureId, kEnglish, {picture.begin(), picture.end()}});
    }
    resources.push_back({14, {}, groupId, kEnglish, group.Take()});
}

}  // namespace

std::vector<ModuleResource> BuildSettingsResources() {
    std::vector<ModuleResource> resources;
    for (const DialogTemplate& dialog : DialogTemplates()) {
        resources.push_back({5, {}, dialog.id, dialog.language, BuildDialog(dialog)});
    }
    AppendIcon(resources, qv::IconFile(), IDR_SETTINGS_ICON);
    resources.push_back(
        {6, {}, StringBlockId(IDS_PROJNAME), kEnglish, BuildStringBlock(IDS_PROJNAME, L"" QV_PROJECT_NAME)});
    const auto script = qv::RegistryScriptFile();
    resources.push_back({0, L"REGISTRY", IDR_REGISTRY, kEnglish, {script.begin(), script.end()}});
    return resources;
}

void RegisterSettingsResources(HMODULE module) {
    static const std::vector<ModuleResource> resources = BuildSettingsResources();
    for (const ModuleResource& resource : resources) {
        qv::RegisterModuleResource(module,
                                   resource.type != 0 ? MAKEINTRESOURCEW(resource.type) : resource.typeName.c_str(),
                                   resource.id, resource.language, resource.bytes);
    }
}

void UnregisterSettingsResources(HMODULE module) noexcept {
    qv::UnregisterModuleResources(module);
}

std::string LoadTextResource(HMODULE module, const wchar_t* type, WORD id) {
    const HRSRC found = FindResourceW(module, MAKEINTRESOURCEW(id), type);
    if (found == nullptr) return {};
    const HGLOBAL loaded = LoadResource(module, found);
    const auto* bytes = loaded != nullptr ? static_cast<const char*>(LockResource(loaded)) : nullptr;
    if (bytes == nullptr) return {};
    return {bytes, static_cast<std::size_t>(SizeofResource(module, found))};
}
