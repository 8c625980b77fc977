// The tab control: titles in one row or several, the selected one, keys, mouse and notifications. Titles stand at the
// top and have no images; the other sides, button style and scrolling of a row that is too long are not modelled.
#pragma once

#include <string>
#include <vector>

#include "platform/headless/controls/control.h"

namespace qv::headless {

class TabControl final : public Control {
public:
    explicit TabControl(HWND window) : Control(window) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    struct Tab {
        std::wstring title;
        LPARAM data = 0;
        int image = -1;
        DWORD state = 0;
        int row = 0;
        int left = 0;
        int width = 0;
    };

    int Count() const { return static_cast<int>(m_tabs.size()); }
    bool Holds(LONG_PTR index) const { return index >= 0 && index < Count(); }
    LRESULT HandleItems(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT Insert(LONG_PTR index, const TCITEMW& item);
    LRESULT Delete(LONG_PTR index);
    LRESULT SetItem(LONG_PTR index, const TCITEMW& item);
    LRESULT GetItem(LONG_PTR index, TCITEMW& item) const;
    static void Take(Tab& tab, const TCITEMW& item);

    LRESULT SetCurrent(LONG_PTR index);
    // As a person does: the parent may refuse.
    void Choose(int index);
    void OnKeyDown(WPARAM key, LPARAM flags);
    void OnLeftDown(LPARAM position);
    // The answer of the parent.
    LRESULT Tell(UINT code) const;

    // Rows and places of the titles, worked out when somebody asks for them after a change: many titles are set one
    // after the other.
    void Arrange();
    int TabWidth(const Tab& tab) const;
    void StretchRow(size_t first, size_t last, int width);
    int TabHeight() const;
    int TopOf(const Tab& tab) const;
    LRESULT ItemRect(LONG_PTR index, RECT* rect) const;
    LRESULT HitTest(TCHITTESTINFO& info) const;
    // larger: from the area for the pages to the whole control; else the other way. Of the tabs as arranged last.
    void Adjust(bool larger, RECT& rect) const;

    std::vector<Tab> m_tabs;
    int m_current = -1;
    int m_focus = 0;
    bool m_arranged = false;
    int m_rows = 0;
    int m_fixedWidth = 96;
    int m_fixedHeight = 0;
    int m_minimumWidth = 54;
    int m_horizontalPadding = 6;
    int m_verticalPadding = 3;
};

}  // namespace qv::headless
