#include "qvclient/qvsettingsdialog/model/item_walk.h"

#include "qvclient/qvsettingsdialog/model/settings_path.h"

namespace qv {

void FillItem(const Definition& definition, ItemDraft& draft, LoadedItem& item) {
    const RowShape& shape = definition.type.shape;
    auto row = std::make_unique<LayoutRows::Column>(MakeItemKey(definition.name));
    row->prompt = std::move(draft.label);
    row->order = draft.order;
    row->disabled = draft.disabled;
    row->dataType = shape.dataType;
    row->controlType = shape.controlType;
    row->resizeMode = shape.resizeMode;
    row->SetControlWidth(shape.minWidth, shape.maxWidth);
    row->SetControlHeight(shape.minHeight, shape.maxHeight);
    item.page = draft.page;
    item.row = std::move(row);
    item.facts.scope = draft.scope;
}

void FillPlainItem(const Definition& definition, ItemDraft& draft, LoadedItem& item, std::wstring shown) {
    FillItem(definition, draft, item);
    item.row->value = std::move(shown);
    if (draft.hasDefault) item.facts.defaultText = std::move(draft.defaultText);
}

}  // namespace qv
