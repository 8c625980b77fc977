#include "host/libraries/layout_rows.h"

namespace qv {

LayoutRows::Column::Column(std::wstring rowName) : name(std::move(rowName)) {}

// The unnamed arguments belong to features of the host's other dialogs, which pages of this kind do not use.
LayoutRows::Column::Column(CWnd* parentWindow, std::wstring rowName, std::wstring promptText, std::wstring valueText,
                           int orderNumber, bool, bool isDisabled, int dataTypeCode, int controlTypeCode,
                           int resizeModeCode, CWnd* companion, int lowerInteger, int upperInteger, double lowerDouble,
                           double upperDouble, int digitCount, int decimalPlaces, int, std::wstring, bool, void*, bool,
                           int, int, int, std::wstring, std::wstring, std::wstring)
    : parent(parentWindow),
      control(companion),
      name(std::move(rowName)),
      prompt(std::move(promptText)),
      value(std::move(valueText)),
      order(orderNumber),
      disabled(isDisabled),
      dataType(dataTypeCode),
      controlType(controlTypeCode),
      resizeMode(resizeModeCode),
      lower(lowerInteger),
      upper(upperInteger),
      lowerReal(lowerDouble),
      upperReal(upperDouble),
      limit(digitCount),
      decimals(decimalPlaces) {}

void LayoutRows::Column::SetColumnItemList(std::vector<ColumnItem> list) {
    items = std::move(list);
}

void LayoutRows::Column::SetControlWidth(int minimum, int maximum) {
    minWidth = minimum;
    maxWidth = maximum;
}

void LayoutRows::Column::SetControlHeight(int minimum, int maximum) {
    minHeight = minimum;
    maxHeight = maximum;
}

LayoutRows::Group::Group(CWnd* parentWindow, int groupNumber, std::wstring titleText, bool, CWnd*,
                         std::vector<std::unique_ptr<Column>> rows, std::wstring, bool, bool)
    : parent(parentWindow), number(groupNumber), title(std::move(titleText)), columns(std::move(rows)) {}

}  // namespace qv
