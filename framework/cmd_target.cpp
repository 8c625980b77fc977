#include "framework/cmd_target.h"

QV_RUNTIME_CLASS(CCmdTarget, CObject)

const MessageMap* CCmdTarget::GetThisMessageMap() {
    static const MessageMap map{nullptr, {}};
    return &map;
}

const MessageMap* CCmdTarget::GetMessageMap() const {
    return GetThisMessageMap();
}

bool CCmdTarget::OnCmdMsg(UINT id, UINT code) {
    const MessageEntry* entry = GetMessageMap()->Find(MessageEntry::Kind::Command, WM_COMMAND, code, id);
    if (entry == nullptr) return false;
    LRESULT result = 0;
    return entry->invoke(*this, {WM_COMMAND, MAKEWPARAM(id, code), 0}, &result);
}
