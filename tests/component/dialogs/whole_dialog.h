// The fixture of the dialogs' tests: the settings dialog linked into the test program, over a host in memory, without
// COM around it.
#pragma once

#include <gtest/gtest.h>

#include "qvclient/qvsettingsdialog/dialogs/dyn_dialog_scroll.h"
#include "tests/support/component_in_program.h"
#include "tests/support/settings_driver.h"
#include "tests/support/test_host.h"

class WholeDialog : public ::testing::Test {
protected:
    // The model of the host's tree, as the manager makes it.
    [[nodiscard]] XConstructionSet MakeModel() const;
    // A fresh model and frame, as the manager makes them.
    int Show(qvtest::SettingsDriver::Steps steps);
    // Opens the framed dialog, acts in it and presses the button that ends it.
    void InDialog(std::function<void()> act, int end = IDCANCEL) {
        EXPECT_EQ(Show({std::move(act), [this, end] { driver.Press(end); }}), end);
    }
    // The dialog without a frame.
    int ShowFree(qvtest::SettingsDriver::Steps steps);
    // The dialog and the sheet by their own classes, while they are shown.
    [[nodiscard]] XDynDialog& Dialog() const;
    [[nodiscard]] XDynPropertySheet& Sheet() const;

    qvtest::TestHost host;
    qvtest::SettingsDriver driver;

private:
    ComponentInProgram m_component;
};
