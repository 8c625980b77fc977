#include "framework/message_map.h"

const MessageEntry* MessageMap::Find(MessageEntry::Kind kind, UINT message, UINT code, UINT id) const noexcept {
    using Kind = MessageEntry::Kind;
    const auto matches = [&](const MessageEntry& entry) {
        if (entry.kind != kind) return false;
        switch (kind) {
            case Kind::Message:
            case Kind::ReflectedMessage:
                return entry.message == message;
            case Kind::Command:
            case Kind::Notify:
                return entry.code == code && entry.id == id;
            case Kind::ReflectedCommand:
                return entry.code == code;
        }
        return false;
    };
    for (const MessageMap* map = this; map != nullptr; map = map->base) {
        for (const MessageEntry& entry : map->entries) {
            if (matches(entry)) return &entry;
        }
    }
    return nullptr;
}
