#include "base/object.h"

const CRuntimeClass CObject::kRuntimeClass{L"CObject", nullptr, nullptr};

bool CRuntimeClass::IsDerivedFrom(const CRuntimeClass& other) const noexcept {
    for (const CRuntimeClass* description = this; description != nullptr; description = description->base) {
        if (description == &other) return true;
    }
    return false;
}

CObject* CRuntimeClass::CreateObject() const {
    return create != nullptr ? create() : nullptr;
}

CObject::~CObject() = default;

const CRuntimeClass* CObject::GetRuntimeClass() const {
    return &kRuntimeClass;
}

bool CObject::IsKindOf(const CRuntimeClass& runtimeClass) const {
    return GetRuntimeClass()->IsDerivedFrom(runtimeClass);
}
