// Run-time classes: a class description that can be compared and, for some, instantiated at run time. The framework
// asks them which kind of control sent a notification and which kind of window a parent is, across module borders,
// where the compiler's own type information would depend on how the modules were linked.
#pragma once

class CObject;

// Describes one class. There is exactly one description a class in a process; its address is its identity.
struct CRuntimeClass {
    const wchar_t* name;
    const CRuntimeClass* base;  // null for CObject only
    CObject* (*create)();       // null when the class cannot be created by description

    [[nodiscard]] bool IsDerivedFrom(const CRuntimeClass& other) const noexcept;
    // A new, default-constructed object owned by the caller, or null when the class cannot be created this way.
    [[nodiscard]] CObject* CreateObject() const;
};

class CObject {
public:
    static const CRuntimeClass kRuntimeClass;

    CObject() = default;
    CObject(const CObject&) = delete;
    CObject& operator=(const CObject&) = delete;
    virtual const CRuntimeClass* GetRuntimeClass() const;
    virtual ~CObject();

    // True for the class itself and for every class derived from it.
    [[nodiscard]] bool IsKindOf(const CRuntimeClass& runtimeClass) const;
};

// The object as a T when it is one, else null. Null stays null.
template <class T>
[[nodiscard]] T* DynamicDownCast(CObject* object) {
    return object != nullptr && object->IsKindOf(T::kRuntimeClass) ? static_cast<T*>(object) : nullptr;
}
template <class T>
[[nodiscard]] const T* DynamicDownCast(const CObject* object) {
    return object != nullptr && object->IsKindOf(T::kRuntimeClass) ? static_cast<const T*>(object) : nullptr;
}

// In the class: the two declarations. In its .cpp: QV_RUNTIME_CLASS(XPage, CPropertyPage), or QV_RUNTIME_CLASS_CREATE
// for a class that a description may create.
#define QV_DECLARE_RUNTIME_CLASS              \
public:                                       \
    static const CRuntimeClass kRuntimeClass; \
    const CRuntimeClass* GetRuntimeClass() const override;

#define QV_RUNTIME_CLASS(type, baseType)                                                   \
    const CRuntimeClass type::kRuntimeClass{L"" #type, &baseType::kRuntimeClass, nullptr}; \
    const CRuntimeClass* type::GetRuntimeClass() const {                                   \
        return &kRuntimeClass;                                                             \
    }

#define QV_RUNTIME_CLASS_CREATE(type, baseType)                                     \
    const CRuntimeClass type::kRuntimeClass{L"" #type, &baseType::kRuntimeClass,    \
                                            []() -> CObject* { return new type; }}; \
    const CRuntimeClass* type::GetRuntimeClass() const {                            \
        return &kRuntimeClass;                                                      \
    }
