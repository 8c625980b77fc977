// The sample host: a window whose menu opens the settings dialog on a definition file.
#include "app/console.h"
#include "app/main_window.h"
#include "app/options.h"
#include "app/sample_host.h"
#include "app/script.h"
#include "app/script_runner.h"
#include "base/module_state.h"
#include "base/text.h"
#include "framework/app.h"
#include "host/services/whole_file.h"
#include "platform/command_line.h"

namespace {

enum ExitStatus : int { kDone = 0, kFailed = 1, kWrongCommandLine = 2, kUnusableFile = 3 };

int Fail(ExitStatus status, const std::wstring& problem) {
    qv::PrintError(problem);
    return status;
}

// The script's actions; none without a script.
std::wstring LoadScript(const std::wstring& file, std::vector<qv::ScriptAction>& actions) {
    std::string bytes;
    if (qv::ReadWholeFile(file, bytes) != qv::ReadResult::Done) return file + L" could not be read";
    std::wstring problem;
    return qv::ParseScript(qv::FromUtf8(bytes), actions, problem) ? L"" : file + L": " + problem;
}

int Run(const qv::Options& options) {
    std::vector<qv::ScriptAction> actions;
    if (!options.script.empty()) {
        if (const std::wstring problem = LoadScript(options.script, actions); !problem.empty()) {
            return Fail(kUnusableFile, problem);
        }
    }
    qv::SampleHost host(&qv::PrintError);
    std::wstring problem;
    if (!host.Start(options, problem)) return Fail(kUnusableFile, problem);

    qv::ScriptRunner runner(std::move(actions), &qv::PrintLine);
    std::wstring failure = options.script.empty() ? L"" : L"no settings dialog appeared";
    qv::MainWindow* log = nullptr;
    qv::MainWindow window([&] {
        failure = L"the dialog broke off";
        qv::PrintLine(L"The settings dialog opens.");
        if (!options.script.empty()) runner.Start();
        std::vector<std::wstring> changes;
        const bool taken = host.ChangeSettings(changes);
        if (!options.script.empty()) runner.DialogEnded();
        failure = taken ? runner.Problem() : L"the settings component did not take the command";
        const std::wstring summary =
            changes.empty() ? L"The dialog is closed; nothing changed." : L"The dialog is closed. Values that changed:";
        qv::PrintLine(summary);
        log->Log(summary);
        for (const std::wstring& line : changes) {
            qv::PrintLine(L"  " + line);
            log->Log(L"  " + line);
        }
    });
    log = &window;
    if (!window.CreateMain(L"Sample host - " + qv::FileNameOf(options.definitions))) {
        return Fail(kFailed, L"the window could not be created");
    }
    window.ShowWindow(SW_SHOW);
    SetMainWnd(&window);
    window.Log(L"Definitions: " + options.definitions);
    window.Log(L"Values: " + options.data);
    window.Log(L"Tools > Settings > Change... opens the settings dialog.");
    if (options.open) window.PostChangeSettings(true);
    RunMessageLoop([] { return true; });
    SetMainWnd(nullptr);
    return failure.empty() ? kDone : Fail(kFailed, failure);
}

}  // namespace

int main() {
    std::vector<std::wstring> arguments = qv::CommandLineArguments();
    if (!arguments.empty()) arguments.erase(arguments.begin());
    qv::Options options;
    std::wstring problem;
    if (!qv::ParseOptions(arguments, options, problem)) {
        qv::PrintError(problem);
        qv::PrintLine(qv::UsageText());
        return kWrongCommandLine;
    }
    if (options.help) {
        qv::PrintLine(qv::UsageText());
        return kDone;
    }
    if (FAILED(OleInitialize(nullptr))) return Fail(kFailed, L"COM could not be started");
    ModuleState state{GetModuleHandleW(nullptr)};
    SetProcessModuleState(state);
    const int status = Run(options);
    OleUninitialize();
    return status;
}
