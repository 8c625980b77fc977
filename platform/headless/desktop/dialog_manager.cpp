// Dialog windows: made from templates, with their own default procedure, default button and remembered focus.
#include "platform/headless/desktop/dialog_manager.h"

#include <algorithm>
#include <cstdio>
#include <cstdlib>
#include <cwchar>

#include "platform/headless/base/encoding.h"
#include "platform/headless/desktop/controls.h"
#include "platform/headless/desktop/dialog.h"
#include "platform/headless/desktop/dialog_template.h"
#include "platform/headless/desktop/gdi.h"
#include "platform/headless/desktop/gdi_objects.h"
#include "platform/headless/desktop/rectangles.h"
#include "platform/headless/desktop/screen.h"
#include "platform/headless/desktop/text_metrics.h"
#include "platform/headless/desktop/window_table.h"

namespace qv::headless {

std::deque<int>& MessageBoxAnswers() {
    static auto& s_answers = *new std::deque<int>;
    return s_answers;
}

DialogState* DialogOf(HWND handle) noexcept {
    Window* window = Peek(handle);
    return window ? window->dialog.get() : nullptr;
}

namespace {

// Half the width of the alphabets' average is the platform's measure: the 52 letters, rounded.
SIZE BaseUnitsOf(HFONT font) {
    const LOGFONTW* record = FontOf(font);
    if (!record) record = FontOf(GetStockObject(SYSTEM_FONT));
    constexpr std::wstring_view kLetters = L"ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz";
    const LONG width = TextWidth(*record, kLetters);
    return {(width / 26 + 1) / 2, MetricsOf(*record).tmHeight};
}

DialogState& EnsureDialog(Window& window) {
    if (!window.dialog) {
        window.dialog = std::make_unique<DialogState>();
        window.dialog->baseUnits = BaseUnitsOf(nullptr);
    }
    return *window.dialog;
}

bool IsUsable(HWND control) {
    const Window* window = Peek(control);
    return window && IsShown(window) && !(window->style & WS_DISABLED);
}

// Text fields show by selecting everything that typing will replace it.
void GiveFocus(HWND control) {
    if (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_HASSETSEL) SendMessageW(control, EM_SETSEL, 0, -1);
    SetFocus(control);
}

void SaveFocus(HWND dialog) {
    DialogState* state = DialogOf(dialog);
    const HWND focus = GetFocus();
    if (state && focus && IsChild(dialog, focus)) state->savedFocus = focus;
}

void RestoreFocus(HWND dialog, bool force) {
    DialogState* state = DialogOf(dialog);
    const Window* window = Peek(dialog);
    if (!state || !window || (window->style & WS_MINIMIZE)) return;
    if (!force && IsChild(dialog, GetFocus())) return;
    HWND target = state->savedFocus;
    state->savedFocus = nullptr;
    if (!IsChild(dialog, target) || !IsUsable(target)) {
        target = GetNextDlgTabItem(dialog, nullptr, FALSE);
        if (!target) target = GetNextDlgGroupItem(dialog, nullptr, FALSE);
        if (target) {
            GiveFocus(target);
            return;
        }
    }
    SetFocus(target && IsChild(dialog, target) ? target : dialog);
}

bool IsDefaultButton(HWND control) {
    return control && (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON);
}

HWND FindDefaultButton(HWND dialog) {
    const Window* window = Peek(dialog);
    if (!window) return nullptr;
    for (const HWND child : ChildrenOf(*window)) {
        if (Peek(child) && IsDefaultButton(child)) return child;
        const Window* inner = Peek(child);
        if (!inner || !(inner->exStyle & WS_EX_CONTROLPARENT)) continue;
        if (const HWND deeper = FindDefaultButton(child)) return deeper;
    }
    return nullptr;
}

// The ring around the default button moves: buttons of the push kinds change their style.
void SetDefaultButton(HWND dialog, HWND button) {
    const DialogState* state = DialogOf(dialog);
    HWND old = state && state->hasDefault ? GetDlgItem(dialog, state->defaultId) : nullptr;
    // A dialog inside this one keeps the ring of its own default button while this dialog's own is set.
    if (!IsDefaultButton(old)) old = FindDefaultButton(dialog);
    if (old == button && button) return;
    const auto setStyle = [](HWND control, DWORD style) {
        const Window* window = Peek(control);
        if (window) SendMessageW(control, BM_SETSTYLE, style, TRUE);
    };
    if (old && old != button) setStyle(old, BS_PUSHBUTTON);
    if (button && (SendMessageW(button, WM_GETDLGCODE, 0, 0) & DLGC_UNDEFPUSHBUTTON))
        setStyle(button, BS_DEFPUSHBUTTON);
}

LRESULT SetDefaultId(HWND dialog, WPARAM id) {
    DialogState* state = DialogOf(dialog);
    if (!state) return FALSE;
    const HWND old = state->hasDefault ? GetDlgItem(dialog, state->defaultId) : nullptr;
    state->defaultId = LOWORD(id);
    state->hasDefault = true;
    const HWND button = GetDlgItem(dialog, state->defaultId);
    if (old && old != button && IsDefaultButton(old)) SendMessageW(old, BM_SETSTYLE, BS_PUSHBUTTON, TRUE);
    if (button && (SendMessageW(button, WM_GETDLGCODE, 0, 0) & DLGC_UNDEFPUSHBUTTON)) SetDefaultButton(dialog, button);
    return TRUE;
}

LRESULT GetDefaultId(HWND dialog) {
    const DialogState* state = DialogOf(dialog);
    if (!state || !state->hasDefault) {
        if (const HWND button = FindDefaultButton(dialog)) {
            return MAKELONG(static_cast<std::uintptr_t>(GetDlgCtrlID(button)), DC_HASDEFID);
        }
        return 0;
    }
    return MAKELONG(static_cast<std::uintptr_t>(state->defaultId), DC_HASDEFID);
}

LRESULT NextControl(HWND dialog, WPARAM wParam, LPARAM lParam) {
    HWND target = reinterpret_cast<HWND>(wParam);
    if (LOWORD(static_cast<std::uintptr_t>(lParam)) == FALSE) {
        const HWND focus = GetFocus();
        if (!focus || (focus != dialog && !IsChild(dialog, focus))) {
            RestoreFocus(dialog, true);
            return 0;
        }
        target = GetNextDlgTabItem(dialog, focus, wParam != 0);
    }
    if (!Peek(target)) return 0;
    GiveFocus(target);
    // The focused push button becomes the default one; elsewhere the dialog's own button is it again.
    const LRESULT code = SendMessageW(target, WM_GETDLGCODE, 0, 0);
    if (code & (DLGC_DEFPUSHBUTTON | DLGC_UNDEFPUSHBUTTON)) {
        SetDefaultButton(dialog, target);
    } else {
        const LRESULT id = SendMessageW(dialog, DM_GETDEFID, 0, 0);
        const HWND button = HIWORD(static_cast<std::uintptr_t>(id)) == DC_HASDEFID
                                ? GetDlgItem(dialog, LOWORD(static_cast<std::uintptr_t>(id)))
                                : nullptr;
        if (button) SetDefaultButton(dialog, button);
    }
    return 0;
}

LRESULT DialogDefault(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    switch (message) {
        case WM_ERASEBKGND:
            SendMessageW(dialog, WM_CTLCOLORDLG, wParam, reinterpret_cast<LPARAM>(dialog));
            return TRUE;
        case WM_NCDESTROY: {
            DialogState* state = DialogOf(dialog);
            if (state && state->ownsFont) DeleteObject(state->font);
            if (Window* window = Peek(dialog)) window->dialog.reset();
            SetWindowLongPtrW(dialog, DWLP_DLGPROC, 0);
            return DefWindowProcW(dialog, message, wParam, lParam);
        }
        case WM_SHOWWINDOW:
            if (!wParam) SaveFocus(dialog);
            return DefWindowProcW(dialog, message, wParam, lParam);
        case WM_ACTIVATE:
            if (LOWORD(wParam) != WA_INACTIVE) {
                RestoreFocus(dialog, true);
            } else {
                SaveFocus(dialog);
            }
            return 0;
        case WM_SETFOCUS:
            RestoreFocus(dialog, true);
            return 0;
        case DM_SETDEFID:
            return SetDefaultId(dialog, wParam);
        case DM_GETDEFID:
            return GetDefaultId(dialog);
        case WM_NEXTDLGCTL:
            return NextControl(dialog, wParam, lParam);
        case WM_GETFONT: {
            const DialogState* state = DialogOf(dialog);
            return reinterpret_cast<LRESULT>(state ? state->font : nullptr);
        }
        case WM_CLOSE:
            PostMessageW(dialog, WM_COMMAND, IDCANCEL, reinterpret_cast<LPARAM>(GetDlgItem(dialog, IDCANCEL)));
            return 0;
        default:
            return DefWindowProcW(dialog, message, wParam, lParam);
    }
}

// Messages whose answer is the dialog procedure's own result rather than the stored message result.
bool AnswersDirectly(UINT message) {
    switch (message) {
        case WM_CTLCOLORMSGBOX:
        case WM_CTLCOLOREDIT:
        case WM_CTLCOLORLISTBOX:
        case WM_CTLCOLORBTN:
        case WM_CTLCOLORDLG:
        case WM_CTLCOLORSCROLLBAR:
        case WM_CTLCOLORSTATIC:
        case WM_COMPAREITEM:
        case WM_VKEYTOITEM:
        case WM_CHARTOITEM:
        case WM_INITDIALOG:
            return true;
        default:
            return false;
    }
}

struct ClassName {
    std::wstring text;
    LPCWSTR pointer;

    explicit ClassName(const TemplateName& name) : text(name.text) {
        // Their places are their numbers, so the scroll bar has one although there is none.
        static constexpr const wchar_t* kStandard[] = {L"Button",  L"Edit",      L"Static",
                                                       L"ListBox", L"ScrollBar", L"ComboBox"};
        constexpr WORD kFirst = 0x80;
        const std::size_t index = static_cast<std::size_t>(name.ordinal) - kFirst;
        if (name.ordinal >= kFirst && index < std::size(kStandard)) text = kStandard[index];
        pointer = text.empty() ? MAKEINTRESOURCEW(name.ordinal) : text.c_str();
    }
};

// Text of a control: a string, or the marker and number of a resource.
struct ItemText {
    std::wstring text;

    explicit ItemText(const TemplateName& name) : text(name.text) {
        if (name.ordinal) text = L"#" + std::to_wstring(name.ordinal);
    }
};

HFONT MakeDialogFont(const DialogTemplate& source, bool& owned) {
    constexpr int kPointsPerInch = 72;
    LOGFONTW font{};
    if (source.hasFont) {
        font.lfHeight = -MulDiv(source.pointSize, static_cast<int>(Screen().dpi), kPointsPerInch);
        font.lfWeight = source.weight;
        font.lfItalic = source.italic;
        font.lfCharSet = source.charSet;
        std::wcsncpy(font.lfFaceName, source.face.c_str(), LF_FACESIZE - 1);
    } else {
        NONCLIENTMETRICSW metrics{};
        metrics.cbSize = sizeof metrics;
        SystemParametersInfoW(SPI_GETNONCLIENTMETRICS, sizeof metrics, &metrics, 0);
        font = metrics.lfMessageFont;
    }
    owned = true;
    return CreateFontIndirectW(&font);
}

bool CreateControls(HWND dialog, const DialogTemplate& source, HINSTANCE instance) {
    const DialogState* state = DialogOf(dialog);
    const SIZE units = state->baseUnits;
    const HFONT font = state->font;
    HWND defaultButton = nullptr;
    for (const TemplateItem& item : source.items) {
        const ClassName className(item.windowClass);
        const ItemText text(item.text);
        const HWND control = CreateWindowExW(
            item.exStyle | WS_EX_NOPARENTNOTIFY, className.pointer, text.text.c_str(),
            (item.style & ~static_cast<DWORD>(WS_POPUP)) | WS_CHILD, MulDiv(item.x, units.cx, 4),
            MulDiv(item.y, units.cy, 8), MulDiv(item.cx, units.cx, 4), MulDiv(item.cy, units.cy, 8), dialog,
            reinterpret_cast<HMENU>(static_cast<std::uintptr_t>(item.id)), instance, const_cast<void*>(item.data));
        if (!Peek(dialog)) return false;
        if (!control) {
            if (source.style & DS_NOFAILCREATE) continue;
            return false;
        }
        if (font) SendMessageW(control, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
        if (SendMessageW(control, WM_GETDLGCODE, 0, 0) & DLGC_DEFPUSHBUTTON) {
            // One button only can be the default: the last one in the template.
            if (defaultButton) SendMessageW(defaultButton, BM_SETSTYLE, BS_PUSHBUTTON, FALSE);
            defaultButton = control;
            if (DialogState* live = DialogOf(dialog)) {
                live->defaultId = GetDlgCtrlID(control);
                live->hasDefault = true;
            }
        }
    }
    return true;
}

// Where a dialog goes: centred, at default, or relative to its owner, and always inside the work area.
POINT DialogCorner(const DialogTemplate& source, HWND owner, const RECT& frame, SIZE units) {
    POINT corner{frame.left + MulDiv(source.x, units.cx, 4), frame.top + MulDiv(source.y, units.cy, 8)};
    if (source.style & WS_CHILD) return corner;
    const RECT work = Screen().workArea;
    constexpr SHORT kDefaultPlace = static_cast<SHORT>(0x8000);
    if (source.style & DS_CENTER) {
        corner = {(work.left + work.right - WidthOf(frame)) / 2, (work.top + work.bottom - HeightOf(frame)) / 2};
    } else if (source.x == kDefaultPlace) {
        corner = {work.left, work.top};
    } else if (!(source.style & DS_ABSALIGN) && owner) {
        ClientToScreen(owner, &corner);
    }
    corner.x = std::max(work.left, std::min(corner.x, work.right - WidthOf(frame)));
    corner.y = std::max(work.top, std::min(corner.y, work.bottom - HeightOf(frame)));
    return corner;
}

// Asked for by a dialog procedure that leaves the choice of the first focus to the dialog.
void SetInitialFocus(HWND dialog) {
    HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
    if (!first) first = GetNextDlgGroupItem(dialog, nullptr, FALSE);
    if (first) GiveFocus(first);
}

}  // namespace

LRESULT DialogWindowProc(HWND window, UINT message, WPARAM wParam, LPARAM lParam) {
    return DefDlgProcW(window, message, wParam, lParam);
}

}  // namespace qv::headless

using namespace qv::headless;

HWND CreateDialogIndirectParamW(HINSTANCE instance, const DLGTEMPLATE* dialogTemplate, HWND parent, DLGPROC procedure,
                                LPARAM param) {
    if (!dialogTemplate) return nullptr;
    const DialogTemplate source = ReadDialogTemplate(dialogTemplate);
    const DWORD style = (source.style & ~static_cast<DWORD>(WS_VISIBLE)) | DS_3DLOOK;
    DWORD exStyle = source.exStyle;
    if (style & DS_MODALFRAME) exStyle |= WS_EX_DLGMODALFRAME;
    if ((style & DS_CONTROL) || !(style & WS_CHILD)) exStyle |= WS_EX_CONTROLPARENT;

    bool ownsFont = false;
    const HFONT font = source.style & DS_SETFONT ? MakeDialogFont(source, ownsFont) : nullptr;
    const SIZE units = BaseUnitsOf(font);
    RECT frame{0, 0, MulDiv(source.cx, units.cx, 4), MulDiv(source.cy, units.cy, 8)};
    AdjustWindowRectEx(&frame, style, FALSE, exStyle);
    const HWND owner = (style & WS_CHILD) || !parent ? parent : GetAncestor(parent, GA_ROOT);
    const POINT corner = DialogCorner(source, owner, frame, units);

    const ClassName className(source.windowClass);
    const bool ownClass = source.windowClass.ordinal || !source.windowClass.text.empty();
    const HWND dialog =
        CreateWindowExW(exStyle, ownClass ? className.pointer : MAKEINTRESOURCEW(kDialogAtom), source.caption.c_str(),
                        style, corner.x, corner.y, WidthOf(frame), HeightOf(frame), owner, nullptr, instance, nullptr);
    Window* window = Peek(dialog);
    if (!window) {
        if (font) DeleteObject(font);
        return nullptr;
    }
    DialogState& state = EnsureDialog(*window);
    state.font = font;
    state.ownsFont = ownsFont;
    state.baseUnits = units;
    SetWindowLongPtrW(dialog, DWLP_DLGPROC, reinterpret_cast<LONG_PTR>(procedure));
    if (font && procedure) SendMessageW(dialog, WM_SETFONT, reinterpret_cast<WPARAM>(font), FALSE);
    if (!Peek(dialog)) return nullptr;
    if (!CreateControls(dialog, source, instance)) {
        if (Peek(dialog)) DestroyWindow(dialog);
        return nullptr;
    }
    if (procedure) {
        HWND first = GetNextDlgTabItem(dialog, nullptr, FALSE);
        if (!first) first = GetNextDlgGroupItem(dialog, nullptr, FALSE);
        const bool wantsFocus = SendMessageW(dialog, WM_INITDIALOG, reinterpret_cast<WPARAM>(first), param) != 0;
        if (!Peek(dialog)) return nullptr;
        if (wantsFocus && (!(source.style & DS_CONTROL) || (source.style & WS_VISIBLE))) SetInitialFocus(dialog);
        if (!Peek(dialog)) return nullptr;
    }
    if ((source.style & WS_VISIBLE) && !(GetWindowLongW(dialog, GWL_STYLE) & WS_VISIBLE))
        ShowWindow(dialog, SW_SHOWNORMAL);
    return Peek(dialog) ? dialog : nullptr;
}

LRESULT DefDlgProcW(HWND dialog, UINT message, WPARAM wParam, LPARAM lParam) {
    Window* window = Peek(dialog);
    if (!window) return 0;
    EnsureDialog(*window);
    SetWindowLongPtrW(dialog, DWLP_MSGRESULT, 0);
    INT_PTR handled = 0;
    if (const auto procedure = reinterpret_cast<DLGPROC>(GetWindowLongPtrW(dialog, DWLP_DLGPROC))) {
        handled = procedure(dialog, message, wParam, lParam);
    }
    if (!Peek(dialog)) return handled;
    if (!handled) return DialogDefault(dialog, message, wParam, lParam);
    if (message == WM_NCDESTROY) DialogDefault(dialog, message, wParam, lParam);
    return AnswersDirectly(message) ? handled : GetWindowLongPtrW(dialog, DWLP_MSGRESULT);
}

BOOL MapDialogRect(HWND dialog, RECT* rect) {
    const DialogState* state = DialogOf(dialog);
    if (!state || !rect) return FALSE;
    const SIZE units = state->baseUnits;
    *rect = {MulDiv(rect->left, units.cx, 4), MulDiv(rect->top, units.cy, 8), MulDiv(rect->right, units.cx, 4),
             MulDiv(rect->bottom, units.cy, 8)};
    return TRUE;
}

int MessageBoxW(HWND, LPCWSTR text, LPCWSTR caption, UINT) {
    if (MessageBoxAnswers().empty()) {
        std::fprintf(stderr, "headless desktop: message box \"%s\": \"%s\", and nobody to answer it.\n",
                     ToUtf8(caption ? caption : L"").c_str(), ToUtf8(text ? text : L"").c_str());
        std::abort();
    }
    const int answer = MessageBoxAnswers().front();
    MessageBoxAnswers().pop_front();
    return answer;
}
