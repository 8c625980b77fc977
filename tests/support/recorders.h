// What a test puts in the place of the host's dictionary, number locale, units, message boxes and pickers.
#pragma once

#include <optional>
#include <vector>

#include "host/libraries/message_box.h"
#include "host/libraries/numbers.h"
#include "host/libraries/pickers.h"
#include "host/libraries/translation.h"
#include "host/libraries/units.h"
#include "tests/support/scoped.h"

namespace qvtest {

using ScopedDictionary = Scoped<&qv::SetDictionary>;
using ScopedMessageBoxSink = Scoped<&qv::SetMessageBoxSink>;
using ScopedNumberLocale = Scoped<&qv::SetNumberLocale>;
using ScopedPickerSink = Scoped<&qv::SetPickerSink>;
using ScopedUnits = Scoped<&qv::SetUnitDatabase>;

// Keeps every message box and answers it with a button.
class MessageBoxRecorder {
public:
    std::vector<qv::MessageBoxCall> boxes;
    int answer = IDOK;

private:
    ScopedMessageBoxSink m_sink{[this](const qv::MessageBoxCall& call) {
        boxes.push_back(call);
        return answer;
    }};
};

// Keeps what every picker is asked for and answers it; without an answer, as if the user had cancelled.
class PickerRecorder {
public:
    std::vector<qv::PathPickerRequest> paths;  // of folders and files
    std::vector<qv::ColorPickerRequest> colors;
    std::optional<std::wstring> path;
    std::optional<COLORREF> color;

private:
    std::optional<std::wstring> TakePath(const qv::PathPickerRequest& request) {
        paths.push_back(request);
        return path;
    }
    ScopedPickerSink m_sink{qv::PickerSink{[this](const auto& request) { return TakePath(request); },
                                           [this](const auto& request) { return TakePath(request); },
                                           [this](const qv::ColorPickerRequest& request) {
                                               colors.push_back(request);
                                               return color;
                                           }}};
};

}  // namespace qvtest
