// A row as the layout keeps it: its windows, its measures and where it was put last. Used by the layout alone.
#pragma once

#include <climits>
#include <memory>
#include <optional>

#include "host/libraries/layout.h"
#include "host/libraries/layout_metrics.h"
#include "host/libraries/layout_probe.h"

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
    // One of the layout's own.
    [[nodiscard]] bool CanHaveControl() const {
        return !isPlaceholder &&
               (column.controlType == kEdit || column.controlType == kComboBox || column.controlType == kCheckBox);
    }
    [[nodiscard]] bool IsExcluded() const {
        return isPlaceholder || column.disabled || !(isPlanned ? CanHaveControl() : HasControl());
    }
    [[nodiscard]] bool GrowsInWidth() const {
        return column.resizeMode == kResizeWidth || column.resizeMode == kResizeBoth;
    }
    [[nodiscard]] bool GrowsInHeight() const { return column.resizeMode == kResizeBoth; }
    // Case does not count; false without a control.
    [[nodiscard]] bool IsOfClass(const wchar_t* wanted) const;

    // What the windows of a page's rows have in common when they are made.
    struct Surroundings {
        CWnd& page;
        HFONT font;
        int comboFieldHeight;  // as in qv::ControlMeasures
        POINT scrolled;        // how far the rows stand above and to the left of their places
    };

    // Measures the prompt. A placeholder has its window already: it is shown and named.
    void Plan(const qv::LayoutMetrics& metrics);
    void Measure(const qv::LayoutMetrics& metrics, const qv::ControlMeasures& controls, int commonWidth);
    // Makes prompt and control where they are to stand.
    void Make(const Surroundings& surroundings, UINT id);
    // Takes the windows of the layout's own away again; the row is planned as before, with the text that it has now.
    // False where one could tell the windows made next from these.
    bool Discard();
    // Gives the control the prompt as the name that accessibility clients read, where it would have none or another.
    void NameControl();
    // Gives a field that the caller has made the frame and the height of the layout's own.
    void MakeField(int height);
    // From the top of a list's frame to the text of its first entry, when it is not scrolled.
    [[nodiscard]] int FirstEntryTop(int lineHeight) const;
    // The width at which a combo box shows its longest entry; 0 for other rows.
    [[nodiscard]] int EntriesWidth(const qv::LayoutMetrics& metrics) const;

    // Of a planned row what its window would answer.
    [[nodiscard]] std::wstring GetText() const;
    void SetText(std::wstring_view text);
    // Of a planned row: as GetText, but of a combo box the entry as it is seen.
    [[nodiscard]] std::wstring GetShownText() const;

    Column& column;
    std::size_t position = 0;  // in display order
    std::unique_ptr<CStatic> prompt;
    std::unique_ptr<CWnd> ownControl;
    CWnd* control;  // the placeholder's or the layout's own; null when there is none
    bool isPlaceholder;
    bool isPlanned = true;                   // its windows are still to be made
    std::optional<std::wstring> latestText;  // given to a planned row since it was loaded
    bool isLent = false;                     // somebody outside has asked for a window of it

    // Pixels. Bounds include both ends; an unbounded maximum is INT_MAX.
    SIZE promptSize{0, 0};
    int promptOutdent = 0;  // how far the prompt's window begins before its text, which is what prompts align by
    int minWidth = 0, maxWidth = 0;
    int minHeight = 0, maxHeight = 0;
    int droppedHeight = 0;  // of a combo box's list
    // A control of one line stands so that its text is in the middle of the row; a taller one stands at the top.
    bool isTall = false;
    int textTop = 0;  // from the control's top to its first line of text; its middle, where the control says no other

    CRect place;                      // of the whole row
    CRect promptPlace, controlPlace;  // in the page's client area as long as it is not scrolled

private:
    void MakePrompt(const Surroundings& surroundings);
    void MakeControl(const Surroundings& surroundings, UINT id);
    [[nodiscard]] std::unique_ptr<CWnd> MakeEdit(const Surroundings& surroundings, UINT id) const;
    [[nodiscard]] std::unique_ptr<CWnd> MakeCombo(const Surroundings& surroundings, UINT id) const;
    [[nodiscard]] std::unique_ptr<CWnd> MakeCheckBox(const Surroundings& surroundings, UINT id) const;
    [[nodiscard]] DWORD DisabledStyle() const { return column.disabled ? DWORD{WS_DISABLED} : 0; }

    // What a planned row was given to show, whatever its control would make of it.
    [[nodiscard]] const std::wstring& GivenText() const;
    [[nodiscard]] std::wstring PlannedText() const;
    // The first combo box entry with this data, or -1.
    [[nodiscard]] int EntryOf(std::wstring_view data) const;
};
