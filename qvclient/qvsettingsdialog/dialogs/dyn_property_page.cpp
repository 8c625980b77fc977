#include "qvclient/qvsettingsdialog/dialogs/dyn_property_page.h"

#include "framework/check_list_box.h"
#include "host/libraries/message_box.h"
#include "qvclient/qvsettingsdialog/controls/settings_messages.h"
#include "qvclient/qvsettingsdialog/resources/resource_ids.h"

QV_RUNTIME_CLASS(XDynPropertyPage, CPropertyPage)

namespace {

static_assert(kLastSpecialControlId < XLayout::kFirstControlId, "an id belongs to one control of a page");

constexpr int kLayoutMode = 1;
constexpr int kMargin = 10;  // pixels on every side of the layout

// Does this notification mean that the user changed the control's value? The checked list box comes before the list
// box, which it also is: only its check marks count, not its selection.
bool MeansChange(UINT code, const CWnd& control) {
    if (DynamicDownCast<CCheckListBox>(&control) != nullptr) return code == CLBN_CHKCHANGE;
    if (DynamicDownCast<CListBox>(&control) != nullptr) return code == LBN_SELCHANGE;
    if (DynamicDownCast<CComboBox>(&control) != nullptr) return code == CBN_SELCHANGE || code == CBN_EDITCHANGE;
    if (DynamicDownCast<CEdit>(&control) != nullptr) return code == EN_CHANGE;
    if (DynamicDownCast<CButton>(&control) != nullptr) return code == BN_CLICKED;
    return false;
}

}  // namespace

XDynPropertyPage::XDynPropertyPage(PageRecord& record, std::wstring title, UINT pageIndex, CPropertySheet& sheet)
    : CPropertyPage(IDD_SETTINGS_PAGE),
      m_record(record),
      m_layout(kLayoutMode),
      m_title(std::move(title)),
      m_pageIndex(pageIndex),
      m_sheet(sheet) {}

XDynPropertyPage::~XDynPropertyPage() {
    if (m_hWnd != nullptr) CWnd::DestroyWindow();  // before what its windows refer to
}

const MessageMap* XDynPropertyPage::GetThisMessageMap() {
    static const MessageMap map{CPropertyPage::GetThisMessageMap(),
                                {
                                    on::Size<&XDynPropertyPage::OnSize>(),
                                    on::Message<&XDynPropertyPage::OnSettingsModified>(WM_SETTINGS_MODIFIED),
                                }};
    return &map;
}

const MessageMap* XDynPropertyPage::GetMessageMap() const {
    return GetThisMessageMap();
}

CWnd* XDynPropertyPage::Owner() const {
    const CWnd* sheet = GetParent();
    return sheet != nullptr ? sheet->GetParent() : nullptr;
}

bool XDynPropertyPage::RefuseInput(const XLayout::Column& row, std::wstring_view reason) {
    CWnd* control = m_layout.GetColumnControl(row.name);
    if (control == nullptr) return false;
    m_sheet.SetActivePage(this);
    const CWnd* prompt = m_layout.GetColumnPrompt(row.name);
    const std::wstring caption = prompt != nullptr ? prompt->GetWindowText() : std::wstring();
    const CWnd* owner = Owner();
    if (owner == nullptr) return true;
    CoInfoBox(owner->m_hWnd, caption, reason, 0);
    if (!control->IsLive()) return true;  // the dialog went while the message stood there
    m_sheet.SetFocus();
    control->SendMessage(EM_SETSEL, 0, -1);
    control->SetFocus();
    return true;
}

void XDynPropertyPage::RefuseInput(SpecialControl& control) {
    CWnd& window = control.Window();
    if (!window.IsLive()) return;  // the dialog went while the reason stood there
    m_sheet.SetActivePage(this);
    m_sheet.SetFocus();
    window.SetFocus();
    if (auto* chooser = dynamic_cast<ValidatedControl*>(&control)) chooser->SelectDataInEditCtrl();
}

void XDynPropertyPage::ReportFailedSave(std::wstring_view text) {
    if (const CWnd* owner = Owner()) CoErrorBox(owner->m_hWnd, L"Store Settings", text, 0);
}

// A slot of its own for what is derived from this class; there is nothing to exchange here.
void XDynPropertyPage::DoDataExchange(CDataExchange& exchange) {
    CPropertyPage::DoDataExchange(exchange);
}

bool XDynPropertyPage::OnInitDialog() {
    CPropertyPage::OnInitDialog();
    CreateSpecialControls();
    if (!IsLive()) return true;
    const std::vector<XLayout::Group*> groups = m_record.Groups();
    for (XLayout::Group* group : groups) {
        group->parent = this;
        for (const auto& column : group->columns)
            column->parent = this;
    }
    // Tabs get their texts here and nowhere else, so the sheet visits every page once when it starts.
    if (CTabCtrl* tab = m_sheet.GetTabControl()) tab->SetItemText(static_cast<int>(m_pageIndex), m_title);
    m_layout.InitLayoutManager(this, groups);
    m_layout.SetDefaultTabOrder();
    m_initialised = true;
    return true;
}

void XDynPropertyPage::CreateSpecialControls() {
    const std::vector<XLayout::Group*> groups = m_record.Groups();
    UINT id = kFirstSpecialControlId;
    for (const SpecialControlKind kind : m_record.ControlKinds()) {
        for (const auto& control : m_record.Controls(kind)) {
            // Deliberate: a refused window is not reported here, nor one for which there is no id left. The layout
            // leaves such a row empty and keeps it from being stored.
            if (id <= kLastSpecialControlId && control->CreateOnPage(*this, id)) {
                control->ShowInitValue();  // a value that the control refuses is reported
                if (!IsLive()) return;
                if (kind == SpecialControlKind::Button) control->Window().SetFont(GetFont(), true);
            }
            ++id;
            for (const auto& [row, group] : control->GetLayoutCells()) {
                groups.at(static_cast<std::size_t>(group))->columns.at(static_cast<std::size_t>(row))->control =
                    &control->Window();
            }
        }
    }
}

void XDynPropertyPage::OnSize(UINT type, int cx, int cy) {
    CPropertyPage::OnSize(type, cx, cy);
    m_layout.RecalcLayout(kMargin, kMargin, cx - 2 * kMargin, cy - 2 * kMargin);
}

bool XDynPropertyPage::OnCommand(WPARAM wParam, LPARAM lParam) {
    const UINT id = LOWORD(wParam);
    const UINT code = HIWORD(wParam);
    if (id != 0 && m_initialised) {
        const CWnd* control = CWnd::FromHandle(reinterpret_cast<HWND>(lParam));
        if (control != nullptr && MeansChange(code, *control)) ReportChange();
    }
    return CPropertyPage::OnCommand(wParam, lParam);
}

// Controls that report their own changes are passed on even while the page is being filled.
LRESULT XDynPropertyPage::OnSettingsModified(WPARAM /*wParam*/, LPARAM /*lParam*/) {
    ReportChange();
    return 0;
}

void XDynPropertyPage::ReportChange() {
    m_sheet.SendMessage(WM_SETTINGS_MODIFIED);
}
