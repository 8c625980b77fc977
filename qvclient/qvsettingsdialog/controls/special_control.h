// SpecialControl: what every control that owns its value offers to the model and the page, whichever kind it is.
// SpecialControlBase keeps the part that all kinds share.
#pragma once

#include <cstddef>
#include <set>
#include <string>
#include <string_view>
#include <utility>

#include "platform/platform.h"

class CWnd;

// Kinds 0 to 2 are not special. The numbers are fixed.
enum class SpecialControlKind : int {
    CheckedList = 3,
    Password = 4,
    Path = 5,
    Colour = 6,
    File = 7,
    Button = 8,
    End,  // their number follows from it
};
inline constexpr auto kFirstSpecialControlKind = SpecialControlKind::CheckedList;
inline constexpr std::size_t kSpecialControlKinds =
    static_cast<std::size_t>(SpecialControlKind::End) - static_cast<std::size_t>(kFirstSpecialControlKind);
// From 0, for tables by kind.
[[nodiscard]] constexpr std::size_t IndexOf(SpecialControlKind kind) noexcept {
    return static_cast<std::size_t>(kind) - static_cast<std::size_t>(kFirstSpecialControlKind);
}

// Rows of the page layout in which a control stands: (row index, group index), both from 0.
using LayoutCells = std::set<std::pair<int, int>>;

class SpecialControl {
public:
    virtual ~SpecialControl() = default;

    // Creates the control's window on the page with an empty rectangle, in the way of its kind; the layout places it.
    // False when the platform refuses; the control then has no window.
    virtual bool CreateOnPage(CWnd& page, UINT id) = 0;
    // The control as a window object, attached or not.
    [[nodiscard]] virtual CWnd& Window() = 0;
    // Whether it has a window. One that could not be created, or is gone, shows nothing that the user could have meant.
    [[nodiscard]] virtual bool HasWindow() const = 0;

    virtual void ShowInitValue() = 0;  // once, after CreateOnPage
    virtual void ShowDefaultValue() = 0;
    [[nodiscard]] virtual std::wstring GetValue() = 0;  // the text to store

    virtual void SetReadOnly(bool readOnly) = 0;
    [[nodiscard]] virtual bool IsReadOnly() const = 0;
    virtual void ClearHasDefault() = 0;
    [[nodiscard]] virtual bool HasDefault() const = 0;
    virtual void SetStorageKey(std::wstring_view keyName, std::wstring_view valueName) = 0;
    // False when either part is empty: the control is then never stored.
    [[nodiscard]] virtual bool GetStorageKey(std::wstring& keyName, std::wstring& valueName) const = 0;
    virtual void SetLayoutCells(LayoutCells cells) = 0;
    [[nodiscard]] virtual const LayoutCells& GetLayoutCells() const = 0;
};

// Choosers add a check of their own input.
class ValidatedControl {
public:
    virtual ~ValidatedControl() = default;
    // Reports the reason itself when the input is refused.
    [[nodiscard]] virtual bool ValidateValue() = 0;
    virtual void SelectDataInEditCtrl() = 0;
};

// The shared state, mixed into a control class: class XDynColorBtn : public SpecialControlBase<XColorBtn> { ... }.
template <class WindowBase>
class SpecialControlBase : public WindowBase, public SpecialControl {
public:
    using WindowBase::WindowBase;

    [[nodiscard]] CWnd& Window() final { return *this; }
    [[nodiscard]] bool HasWindow() const final { return this->GetSafeHwnd() != nullptr; }
    void SetReadOnly(bool readOnly) override { m_readOnly = readOnly; }
    [[nodiscard]] bool IsReadOnly() const override { return m_readOnly; }
    void ClearHasDefault() override { m_hasDefault = false; }
    [[nodiscard]] bool HasDefault() const override { return m_hasDefault; }
    void SetStorageKey(std::wstring_view keyName, std::wstring_view valueName) override {
        m_storageKey = keyName;
        m_storageName = valueName;
    }
    [[nodiscard]] bool GetStorageKey(std::wstring& keyName, std::wstring& valueName) const override {
        keyName = m_storageKey;
        valueName = m_storageName;
        return !keyName.empty() && !valueName.empty();
    }
    void SetLayoutCells(LayoutCells cells) override { m_cells = std::move(cells); }
    [[nodiscard]] const LayoutCells& GetLayoutCells() const override { return m_cells; }

private:
    LayoutCells m_cells;
    bool m_readOnly = false;
    std::wstring m_storageKey;
    std::wstring m_storageName;
    bool m_hasDefault = true;
};
