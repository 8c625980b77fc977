#include "framework/dialog.h"

#include <utility>

#include "framework/app.h"
#include "framework/call_scope.h"
#include "framework/dialog_focus.h"
#include "framework/dialog_template.h"
#include "framework/window_creation.h"

QV_RUNTIME_CLASS(CDialog, CWnd)

CDialog::CDialog(UINT templateId, CWnd* parent) : m_templateId(templateId), m_parent(parent) {}

CDialog::~CDialog() {
    // While this is still a dialog, so that its last messages find it as one.
    if (m_hWnd != nullptr) CWnd::DestroyWindow();
    StopFollowing();
}

const MessageMap* CDialog::GetThisMessageMap() {
    static const MessageMap map{CWnd::GetThisMessageMap(),
                                {
                                    on::Message<&CDialog::OnInitDialogMessage>(WM_INITDIALOG),
                                    on::Command<&CDialog::OnOK>(IDOK),
                                    on::Command<&CDialog::OnCancel>(IDCANCEL),
                                }};
    return &map;
}

const MessageMap* CDialog::GetMessageMap() const {
    return GetThisMessageMap();
}

bool CDialog::Create(UINT templateId, CWnd* parent) {
    m_templateId = templateId;
    m_template = {};
    m_parent = parent;
    return CreateFromTemplate(parent != nullptr ? parent->m_hWnd : nullptr);
}

bool CDialog::CreateIndirect(std::span<const std::byte> dialogTemplate, CWnd* parent) {
    m_template = dialogTemplate;
    m_parent = parent;
    return CreateFromTemplate(parent != nullptr ? parent->m_hWnd : nullptr);
}

void CDialog::InitModalIndirect(std::span<const std::byte> dialogTemplate, CWnd* parent) {
    m_template = dialogTemplate;
    m_parent = parent;
}

bool CDialog::CreateFromTemplate(HWND parent, DWORD removeStyle, DWORD addStyle, DWORD addExStyle) {
    if (m_hWnd != nullptr) return false;
    m_init = Init::NotReached;
    m_gaveUp = false;
    const auto source = m_template.empty() ? qv::detail::FindDialogTemplate(m_templateId) : m_template;
    const auto copy = qv::detail::RestyledTemplate(source, removeStyle, addStyle, addExStyle);
    if (copy.empty()) return false;
    const qv::detail::CreationHold hold(*this);
    HWND window = qv::detail::CreateFromDialogTemplate(*this, copy.data(), parent);
    if (window != nullptr && m_init == Init::Failed) DestroyWindow();
    return window != nullptr && m_hWnd != nullptr;
}

LRESULT CDialog::OnInitDialogMessage(WPARAM, LPARAM) {
    m_init = Init::Failed;  // unless it comes to its end
    // What comes first begins a group, whether or not the template says so. Arrow keys would walk from it into whatever
    // lies around this dialog, and back from there.
    if (HWND first = ::GetWindow(m_hWnd, GW_CHILD)) {
        ::SetWindowLongW(first, GWL_STYLE, ::GetWindowLongW(first, GWL_STYLE) | static_cast<LONG>(WS_GROUP));
    }
    const bool setFocus = OnInitDialog();
    if (!m_gaveUp) m_init = Init::Done;
    if (m_hWnd != nullptr && (GetStyle() & WS_CHILD) == 0) FollowFocus();
    return setFocus ? TRUE : FALSE;
}

void CDialog::FollowFocus() {
    if (m_followsFocus) return;
    m_followsFocus = true;
    qv::detail::StartFollowingFocus();
    // Without a default button of its own a dialog would take whichever button the focus has framed last for it.
    HWND ok = ::GetDlgItem(m_hWnd, IDOK);
    if (ok != nullptr && qv::detail::DefaultButtonOf(m_hWnd) == ok) DefWindowProc(DM_SETDEFID, IDOK, 0);
}

void CDialog::StopFollowing() {
    if (std::exchange(m_followsFocus, false)) qv::detail::StopFollowingFocus();
}

LRESULT CDialog::WindowProc(UINT message, WPARAM wParam, LPARAM lParam) {
    if (message == WM_NCDESTROY) StopFollowing();
    HWND window = m_hWnd;
    const LRESULT result = CWnd::WindowProc(message, wParam, lParam);
    // This object may be gone. What the platform does with these messages moves frames after the focus has changed, by
    // rules that know only one dialog.
    switch (message) {
        case WM_ACTIVATE:
        case WM_SETFOCUS:
        case WM_NEXTDLGCTL:
        case DM_SETDEFID:
            qv::detail::FrameEnterButton(window);
            break;
        default:
            break;
    }
    return result;
}

void CDialog::OnNotShown() {}

bool CDialog::OnInitDialog() {
    UpdateData();
    return true;
}

void CDialog::OnOK() {
    EndDialog(IDOK);
}

void CDialog::OnCancel() {
    EndDialog(IDCANCEL);
}

void CDialog::EndDialog(int result) {
    if (!m_inModalLoop) return;
    m_modalResult = result;
    m_ended = true;
    // Wakes a loop that waits inside the platform.
    if (m_hWnd != nullptr) ::PostMessageW(m_hWnd, WM_NULL, 0, 0);
}

HWND CDialog::FindOwner() const {
    HWND candidate = m_parent != nullptr ? m_parent->m_hWnd : ::GetActiveWindow();
    if (candidate == nullptr) {
        if (const CWnd* mainWindow = GetMainWnd()) candidate = mainWindow->m_hWnd;
    }
    return candidate != nullptr && ::IsWindow(candidate) != FALSE ? ::GetAncestor(candidate, GA_ROOT) : nullptr;
}

// The owner is disabled while it exists, and gets its state and focus back at the end.
class CDialog::Modality {
public:
    explicit Modality(CDialog& dialog)
        : m_dialog(dialog),
          m_moment(qv::detail::Deferral::Now()),
          m_owner(dialog.FindOwner()),
          m_focusBefore(::GetFocus()),
          m_disableOwner(m_owner != nullptr && ::IsWindowEnabled(m_owner) != FALSE) {
        if (m_disableOwner) ::EnableWindow(m_owner, FALSE);
        m_dialog.m_inModalLoop = true;
    }
    ~Modality() {
        m_dialog.m_inModalLoop = false;
        HWND window = m_dialog.m_hWnd;
        // The owner first: a disabled one could not become active when the dialog goes.
        if (m_disableOwner && ::IsWindow(m_owner) != FALSE) ::EnableWindow(m_owner, TRUE);
        HWND active = ::GetActiveWindow();
        const bool passActivationOn = m_wasCreated && (active == window || active == nullptr);
        if (passActivationOn && ::IsWindow(m_owner) != FALSE) ::SetActiveWindow(m_owner);
        if (m_dialog.m_hWnd != nullptr) m_dialog.DestroyWindow();
        const bool focusIsInOwner = m_focusBefore != nullptr && ::IsWindow(m_focusBefore) != FALSE &&
                                    ::GetAncestor(m_focusBefore, GA_ROOT) == m_owner;
        if (focusIsInOwner && ::GetActiveWindow() == m_owner && ::IsWindowEnabled(m_focusBefore) != FALSE) {
            ::SetFocus(m_focusBefore);
        }
        // Nothing of the dialog is left on the stack, whatever runs further out.
        qv::detail::Deferral::DeleteMadeSince(m_moment);
    }
    Modality(const Modality&) = delete;
    Modality& operator=(const Modality&) = delete;

    [[nodiscard]] HWND Owner() const noexcept { return m_owner; }
    void SetCreated() noexcept { m_wasCreated = true; }

private:
    CDialog& m_dialog;
    std::uint64_t m_moment;
    HWND m_owner;
    HWND m_focusBefore;
    bool m_disableOwner;
    bool m_wasCreated = false;
};

INT_PTR CDialog::DoModal() {
    if (m_hWnd != nullptr || m_inModalLoop) return -1;
    const INT_PTR result = RunModal();
    if (result == -1 && m_init != Init::Done) OnNotShown();
    return result;
}

INT_PTR CDialog::RunModal() {
    m_modalResult = -1;
    m_ended = false;
    Modality modality(*this);
    const bool created = CreateFromTemplate(modality.Owner());
    if (created) {
        modality.SetCreated();
        RunModalLoop();
    }
    if (m_init == Init::Failed) return -1;
    if (m_ended) return m_modalResult;
    // A window that went without EndDialog, and a thread that quits, count as cancelled.
    return m_init == Init::Done ? IDCANCEL : -1;
}

void CDialog::RunModalLoop() {
    HWND window = m_hWnd;
    // OnInitDialog may have ended the dialog already; then it is never seen.
    if (m_ended) return;
    if (!IsWindowVisible()) {
        ShowWindow(SW_SHOWNORMAL);
        ::UpdateWindow(window);
    }
    RunMessageLoop([this, window] { return !m_ended && m_hWnd == window; });
}

void CDialog::GotoDlgCtrl(CWnd* control) {
    if (control != nullptr) SendMessage(WM_NEXTDLGCTL, reinterpret_cast<WPARAM>(control->m_hWnd), TRUE);
}
