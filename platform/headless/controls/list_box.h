// The LISTBOX class: entries, selection in its three kinds, keys, mouse, scrolling by whole items, and what the parent
// is told. Owner-drawn lists ask for the item height at creation and are never asked to draw; items all have one
// height.
#pragma once

#include "platform/headless/controls/control.h"
#include "platform/headless/controls/list_items.h"

namespace qv::headless {

class ListBox final : public Control {
public:
    explicit ListBox(HWND window) : Control(window) {}
    LRESULT Handle(UINT message, WPARAM wParam, LPARAM lParam) override;

private:
    bool IsMultiple() const { return Has(LBS_MULTIPLESEL | LBS_EXTENDEDSEL); }
    bool IsExtended() const { return Has(LBS_EXTENDEDSEL); }
    bool IsOwnerDrawn() const { return Has(LBS_OWNERDRAWFIXED | LBS_OWNERDRAWVARIABLE); }
    bool HasStrings() const { return !IsOwnerDrawn() || Has(LBS_HASSTRINGS); }

    LRESULT HandleInput(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleContent(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleSelection(UINT message, WPARAM wParam, LPARAM lParam);
    LRESULT HandleGeometry(UINT message, WPARAM wParam, LPARAM lParam);

    void OnCreate();
    void OnFont(WPARAM font);
    void OnSize();
    void OnKeyDown(UINT key);
    void OnChar(wchar_t unit);
    void OnLeftDown(LPARAM position, WPARAM modifiers);
    void OnMouseMove(LPARAM position);
    void OnLeftUp();

    LRESULT Insert(LONG_PTR index, LPARAM item);
    LRESULT Add(LPARAM item);
    LRESULT Delete(LONG_PTR index);
    void Reset();
    void TellDeleted(int index) const;
    LRESULT GetText(LONG_PTR index, LPVOID buffer) const;
    LRESULT GetTextLength(LONG_PTR index) const;

    LRESULT SetCurrent(LONG_PTR index);
    LRESULT SelectText(LONG_PTR after, LPCWSTR text);
    LRESULT SetMark(LONG_PTR index, bool on);
    LRESULT MarkRange(int first, int last, bool on);
    void MarkOnly(int first, int last);
    LRESULT SelectedItems(int* indexes, int room) const;
    LRESULT SetCaret(LONG_PTR index);
    // What a key does once it is known where it leads.
    void MoveByKey(int index);

    void Changed() const;
    int PageSize() const;
    void SetTop(int index);
    void ShowItem(int index);
    void UpdateScrollBar();
    // LB_ERR below the last item.
    int ItemAt(int y) const;
    LRESULT ItemFromPoint(LPARAM position) const;
    LRESULT ItemRect(LONG_PTR index, RECT* rect) const;

    ListItems m_items;
    int m_current = LB_ERR;
    int m_caret = 0;
    int m_anchor = LB_ERR;
    int m_top = 0;
    bool m_scrolls = false;  // made with a scroll bar, which is hidden while everything is seen
    int m_itemHeight = 1;
    int m_horizontalExtent = 0;
    bool m_tracking = false;
};

}  // namespace qv::headless
