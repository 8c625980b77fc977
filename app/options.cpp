#include "app/options.h"

#include <array>

namespace qv {

namespace {
struct TextOption {
    std::wstring_view name;
    std::wstring Options::*field;
};
constexpr std::array kTextOptions{
    TextOption{L"--definitions", &Options::definitions},
    TextOption{L"--data", &Options::data},
    TextOption{L"--users", &Options::users},
    TextOption{L"--user", &Options::user},
    TextOption{L"--language", &Options::language},
    TextOption{L"--script", &Options::script},
};
struct Switch {
    std::wstring_view name;
    bool Options::*field;
};
constexpr std::array kSwitches{Switch{L"--open", &Options::open}, Switch{L"--help", &Options::help}};
}  // namespace

std::wstring_view UsageText() {
    return LR"(Shows the settings dialog for a definition file.

  qvhost --definitions FILE --data DIR [options]

  --definitions FILE  the definition tree: pages and items, in JSON
  --data DIR          where values are kept: user.json, machine.json, userdb.json, global.json
  --users FILE        users and the rights that each has been granted; without it everything may be changed
  --user NAME         the user who works now
  --language CODE     language of the texts, from translations.json beside the definition file
  --script FILE       actions to carry out in the dialog as a person would, one a line; opens it at once, as --open does
  --open              open the dialog at once and end with it
  --help              this text

Without them the window's menu opens the dialog: Tools > Settings > Change...
Beside the definition file may lie translations.json and units.json.

Script actions:
  page N | page TITLE             bring a page to the front; N counts from 0
  set KEY/NAME TEXT               type into a field, choose an entry, tick a box (on, off; ENTRY on in a checked list)
  press ok|cancel|apply|default|help|KEY/NAME
  key TAB|SHIFT+TAB|ENTER|ESC|...
  type TEXT                       type into whatever has the focus
  resize W H                      the frame's size in pixels
  snapshot FILE.png               a picture of the frame (where there is a screen)
  dump FILE.json                  what the dialog shows
  answer ok|cancel|yes|no|retry   for the next message box
  answer path TEXT | answer colour NUMBER   for the next folder, file or colour dialog

Exit status: 0 done; 1 a script action or the dialog failed; 2 wrong command line; 3 a file could not be used.)";
}

bool ParseOptions(std::span<const std::wstring> arguments, Options& options, std::wstring& problem) {
    for (std::size_t i = 0; i < arguments.size(); ++i) {
        bool known = false;
        for (const auto& candidate : kSwitches) {
            if (arguments[i] != candidate.name) continue;
            options.*candidate.field = known = true;
        }
        for (const auto& candidate : kTextOptions) {
            if (arguments[i] != candidate.name) continue;
            if (i + 1 == arguments.size() || arguments[i + 1].starts_with(L"--")) {
                problem = arguments[i] + L" needs a value";
                return false;
            }
            options.*candidate.field = arguments[++i];
            known = true;
            break;
        }
        if (!known) {
            problem = L"unknown option " + arguments[i];
            return false;
        }
    }
    if (!options.script.empty()) options.open = true;  // a script has no way to the menu
    if (options.help) return true;
    if (options.definitions.empty() || options.data.empty()) {
        problem = L"--definitions FILE and --data DIR are needed";
        return false;
    }
    if (options.user.empty() != options.users.empty()) {
        problem = L"--users FILE and --user NAME go together";
        return false;
    }
    return true;
}

}  // namespace qv
