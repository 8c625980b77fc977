// The platform refuses one window after the other, as it does when it has no handles left. Either there is a dialog,
// and what its lost controls would have held is not stored, or there is none and one message says so. Native build
// only.
#include <map>

#include "framework/app.h"
#include "platform/headless/doors/desktop.h"
#include "qvclient/qvsettingsdialog/dialogs/dyn_dialog_modeless.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"
#include "tests/component/dialogs/whole_dialog.h"

using qv::SessionOperation;

namespace {

int g_created;

LRESULT CALLBACK CountCreations(int code, WPARAM wParam, LPARAM lParam) {
    if (code == HCBT_CREATEWND) ++g_created;
    return CallNextHookEx(nullptr, code, wParam, lParam);
}

class RefusedWindows : public WholeDialog {
protected:
    RefusedWindows() {
        host.DefinePlainPage();
        host.session->Put(SDT_userData, L"common", L"configdialoginit", L"1");
        host.session->Put(SDT_userData, L"SizeConfigDialog", L"bottom.x", L"900");
    }

    void DefineSecondPage() {
        host.DefinePage(L"2", L"Special");
        for (const int type : {5, 6, 7, 8, 9, 10})
            host.DefineItem(L"special/item" + std::to_wstring(type), type, 2, {{L"default", L""}});
    }

    struct Outcome {
        int result = 0;
        bool opened = false;
        bool isFull = true;  // every row of every page has its control
        int windows = 0;     // creations until it stood there
    };

    enum class Refusal { One, OneAndAllAfterIt };

    // Opens the dialog with the n-th window refused (0: none), and presses OK where there is one.
    template <class ShowDialog>
    Outcome Open(std::size_t refused, Refusal refusal, const ShowDialog& show) {
        driver.boxes.clear();
        host.session->ClearCalls();
        XConstructionSet model = MakeModel();
        Outcome outcome;
        std::map<std::wstring, bool> hasControl;
        const qvtest::ScopedIdleHandler pressOk([&](int) {
            if (outcome.opened) return false;
            outcome.opened = true;
            outcome.windows = g_created;
            int pages = 0;
            for (const XLayout* layout : qv::LiveLayouts()) {
                pages += layout->GetParent() != nullptr && layout->GetParent()->IsLive() ? 1 : 0;
                if (layout->GetRows().empty()) outcome.isFull = false;
                for (const XLayout::RowView& row : layout->GetRows()) {
                    hasControl[row.column.name] = row.control != nullptr;
                    outcome.isFull = outcome.isFull && row.control != nullptr;
                }
            }
            EXPECT_GT(pages, 0) << "a dialog without pages";
            EXPECT_TRUE(driver.Press(IDOK));
            return true;
        });
        HHOOK hook = SetWindowsHookExW(WH_CBT, &CountCreations, nullptr, GetCurrentThreadId());
        g_created = 0;
        constexpr std::size_t kUsualLimit = 10000;
        if (refusal == Refusal::One) qv::Desktop::FailWindowCreation(refused);
        if (refusal == Refusal::OneAndAllAfterIt) {
            qv::Desktop::SetWindowLimit(qv::Desktop::Count().windows + refused - 1);
        }
        outcome.result = show(model);
        qv::Desktop::FailWindowCreation(0);
        qv::Desktop::SetWindowLimit(kUsualLimit);
        UnhookWindowsHookEx(hook);

        std::map<std::wstring, int> stored;
        for (const qv::SessionCall& call : host.session->CallsOf(SessionOperation::WriteData)) {
            if (call.key != L"SizeConfigDialog") ++stored[call.key + L"/" + call.name];
        }
        for (const auto& [name, times] : stored)
            EXPECT_TRUE(hasControl[name]) << "stored without a control";
        for (const auto& [name, control] : hasControl)
            EXPECT_EQ(control, stored.contains(name)) << "a value that was shown is stored";
        return outcome;
    }

    // Until nothing is refused any more.
    template <class ShowDialog>
    void RefuseEachInTurn(std::wstring_view caption, bool isModal, const ShowDialog& show) {
        const Outcome whole = Open(0, Refusal::One, show);
        ASSERT_TRUE(whole.opened && whole.isFull);
        RefuseEachInTurn(caption, isModal, show, whole.windows, Refusal::One);
        RefuseEachInTurn(caption, isModal, show, whole.windows, Refusal::OneAndAllAfterIt);
    }

    template <class ShowDialog>
    void RefuseEachInTurn(std::wstring_view caption, bool isModal, const ShowDialog& show, int windows,
                          Refusal refusal) {
        const auto before = qv::Desktop::Count();
        int refusals = 0;
        int incomplete = 0;
        for (int n = 1; n <= windows; ++n) {
            SCOPED_TRACE(std::to_string(n) + (refusal == Refusal::One ? "" : " and all after it"));
            const Outcome outcome = Open(static_cast<std::size_t>(n), refusal, show);
            EXPECT_EQ(qv::Desktop::Count(), before) << "something is left over";
            EXPECT_TRUE(qv::LiveLayouts().empty());
            if (outcome.opened) {
                EXPECT_TRUE(driver.boxes.empty());
                EXPECT_EQ(outcome.result, isModal ? IDOK : 0);
                incomplete += outcome.isFull ? 0 : 1;
                continue;
            }
            ++refusals;
            EXPECT_EQ(outcome.result, -1);
            // A dialog that never stood there has no place to remember.
            EXPECT_TRUE(host.session->CallsOf(SessionOperation::WriteData).empty());
            ASSERT_EQ(driver.boxes.size(), isModal ? 1U : 0U);
            if (!isModal) continue;
            EXPECT_EQ(driver.boxes[0].kind, qv::MessageBoxCall::Kind::Error);
            EXPECT_EQ(driver.boxes[0].owner, nullptr);
            EXPECT_EQ(driver.boxes[0].caption, caption);
            EXPECT_EQ(driver.boxes[0].text, L"The settings dialog could not be opened.");
        }
        // The windows that it cannot do without: itself, its buttons, sheet and tabs; in a frame two more.
        EXPECT_GE(refusals, 6);
        EXPECT_GT(incomplete, 0);
    }
};

TEST_F(RefusedWindows, EndAFramedDialogWithOneMessageOrCostItARow) {
    const auto show = [](XConstructionSet& model) {
        XDynDialogScroll frame(L"Test settings", model, true, nullptr);
        return static_cast<int>(frame.DoModal());
    };
    RefuseEachInTurn(L"Test settings", true, show);
    DefineSecondPage();
    RefuseEachInTurn(L"Test settings", true, show);
}

TEST_F(RefusedWindows, EndAFreeStandingDialogWithOneMessageOrCostItARow) {
    DefineSecondPage();
    RefuseEachInTurn(L"Settings", true, [](XConstructionSet& model) {
        XDynDialog dialog(model, nullptr);
        return static_cast<int>(dialog.DoModal());
    });
}

// Whoever creates a modeless one is told by the answer.
TEST_F(RefusedWindows, FailTheCreationOfAModelessDialogOrCostItARow) {
    RefuseEachInTurn({}, false, [](XConstructionSet& model) {
        XDynDialogModeless dialog(model, nullptr);
        if (!dialog.Create(IDD_SETTINGS_MODELESS, nullptr)) {
            EXPECT_EQ(dialog.m_hWnd, nullptr);
            return -1;
        }
        dialog.ShowWindow(SW_SHOW);
        RunMessageLoop([&] { return dialog.IsLive(); });
        return 0;
    });
}

}  // namespace
