// The two small dialogs behind the reference host's dialog service: a text of several lines to edit or to read, and a
// choice from a list. They know nothing of COM.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "base/dialog_template_writer.h"
#include "framework/controls.h"
#include "framework/dialog.h"

namespace qv {

class TextDialog : public CDialog {
public:
    enum class Mode { Edit, View };
    // Lines of the text end with LF. beside: a window that the dialog shall not cover, or null.
    TextDialog(std::wstring_view caption, std::wstring text, Mode mode, HWND beside = nullptr);
    // After DoModal answered IDOK: the text as the user left it, lines ending with LF.
    [[nodiscard]] const std::wstring& Text() const noexcept { return m_text; }

    bool OnInitDialog() override;
    void OnOK() override;

private:
    // Tab and Escape are the dialog's, also in an edit of several lines, and opening it does not select the text.
    class LinesEdit : public CEdit {
    public:
        const MessageMap* GetMessageMap() const override;

    private:
        LRESULT OnGetDlgCode(WPARAM wParam, LPARAM lParam);
    };

    void MoveBeside();

    DialogTemplateWriter m_memoryTemplate;
    LinesEdit m_edit;
    std::wstring m_text;
    Mode m_mode;
    HWND m_beside;
};

class ChoiceDialog : public CDialog {
public:
    // selected: index of the entry that is selected at first, from 0; one out of range selects the first.
    ChoiceDialog(std::wstring_view caption, std::vector<std::wstring> entries, int selected);
    // After DoModal answered IDOK: the index of the chosen entry, from 0.
    [[nodiscard]] int Chosen() const noexcept { return m_selected; }

    bool OnInitDialog() override;
    void OnOK() override;
    const MessageMap* GetMessageMap() const override;

private:
    DialogTemplateWriter m_memoryTemplate;
    CListBox m_list;
    std::vector<std::wstring> m_entries;
    int m_selected;
};

}  // namespace qv
