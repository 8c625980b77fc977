// A row as the layout keeps it: its windows, its measures and where it was put last. Used by the layout alone.
#pragma once

#include <climits>
#include <memory>
#include <optional>

#include "host/libraries/layout.h"
#include "host/libraries/layout_metrics.h"

struct XLayout::Row {
    explicit Row(Column& source) : column(source), control(source.control), isPlaceholder(source.control != nullptr) {}
    ~Row() {
        // A prompt may look at its control, and a control at its prompt, while it is there.
        control = nullptr;
        ownControl.reset();
    }
    Row(const Row&) = delete;
    Row& operator=(const Row&) = delete;

    [[nodiscard]] bool HasControl() const { return control != nullptr && control->IsLive(); }
    [[nodiscard]] bool HasPrompt() const { return prompt != nullptr && prompt->IsLive(); }
    [[nodiscard]] bool IsExcluded() const { return isPlaceholder || column.disabled || !HasControl(); }
    [[nodiscard]] bool GrowsInWidth() const {
        return column.resizeMode == kResizeWidth || column.resizeMode == kResizeBoth;
    }
    [[nodiscard]] bool GrowsInHeight() const { return column.resizeMode == kResizeBoth; }
    // The control is a text field or holds one.
    [[nodiscard]] bool HasTextField() const;

    void CreatePrompt(CWnd& page, const qv::LayoutMetrics& metrics);
    // Makes the row's own control; a placeholder has one already and is only shown.
    void CreateControl(CWnd& page, const qv::LayoutMetrics& metrics, UINT id);
    // Gives the control the prompt as the name that accessibility clients read, where it would have none or another.
    void NameControl();
    void Measure(const qv::LayoutMetrics& metrics, int commonWidth);
    // The width at which a combo box shows its longest entry; 0 for other rows.
    [[nodiscard]] int EntriesWidth(const qv::LayoutMetrics& metrics) const;

    [[nodiscard]] std::wstring GetText() const;
    void SetText(std::wstring_view text);

    Column& column;
    std::unique_ptr<CStatic> prompt;
    std::unique_ptr<CWnd> ownControl;
    CWnd* control;  // the placeholder's or the layout's own; null when there is none
    bool isPlaceholder;

    // Pixels. Bounds include both ends; an unbounded maximum is INT_MAX.
    SIZE promptSize{0, 0};
    int minWidth = 0, maxWidth = 0;
    int minHeight = 0, maxHeight = 0;
    int droppedHeight = 0;  // of a combo box: what its window's height counts for the list
    // A control of one line is centred in its row; a taller one stands at the top.
    bool isTall = false;
    // From the control's top to its first line of text, where that is not in the middle; the prompt stands beside it.
    std::optional<int> textTop;

    CRect place;                      // of the whole row
    CRect promptPlace, controlPlace;  // in the page's client area as long as it is not scrolled
};
