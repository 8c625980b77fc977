#include "base/com.h"

#include <gtest/gtest.h>

#include <cstdint>
#include <stdexcept>

#include "base/com_module.h"

namespace {

template <class T>
T* Poison() {
    return reinterpret_cast<T*>(std::uintptr_t{0xDDDDDDDDDDDDDDDD});
}

// Whatever a call answers but S_OK, what it left is neither used nor released.
TEST(Receive, TakesOverOnlyWhatASuccessfulCallHandsOut) {
    for (const HRESULT status : {E_FAIL, S_FALSE, E_OUTOFMEMORY}) {
        const auto thing = qv::Receive<qv::ComPtr<IUnknown>>([&](IUnknown** out) {
            *out = Poison<IUnknown>();
            return status;
        });
        EXPECT_EQ(thing.status, status);
        EXPECT_FALSE(thing.value);
        const auto text = qv::Receive<qv::Bstr>([&](BSTR* out) {
            *out = Poison<OLECHAR>();
            return status;
        });
        EXPECT_EQ(text.value.Get(), nullptr);
        const auto value = qv::Receive<qv::Variant>([&](VARIANT* out) {
            out->vt = VT_BSTR;
            out->bstrVal = Poison<OLECHAR>();
            return status;
        });
        EXPECT_FALSE(value.value.Text());
        const auto strings = qv::ReceiveStrings(2, [&](ULONG* count, BSTR** out) {
            *count = 7;
            *out = Poison<BSTR>();
            return status;
        });
        EXPECT_EQ(strings.value.Count(), 0U);
    }
    const auto text = qv::Receive<qv::Variant>([](VARIANT* out) {
        out->vt = VT_BSTR;
        out->bstrVal = SysAllocString(L"mine now");
        return S_OK;
    });
    EXPECT_EQ(text.value.Text(), L"mine now");
}

// All the strings of every entry go with the block; where any is left, the sanitized build says so.
TEST(Receive, OwnsABlockWithAllItsStrings) {
    const auto block = qv::ReceiveStrings(2, [](ULONG* count, BSTR** out) {
        *count = 2;
        *out = static_cast<BSTR*>(CoTaskMemAlloc(4 * sizeof(BSTR)));
        for (int i = 0; i < 4; ++i)
            (*out)[i] = i == 2 ? nullptr : SysAllocString(L"text");
        return S_OK;
    });
    EXPECT_EQ(block.value.Count(), 2U);
    EXPECT_EQ(qv::TextOf(block.value.At(3)), L"text");
    const auto empty = qv::ReceiveStrings(2, [](ULONG* count, BSTR** out) {
        *count = 0;
        *out = static_cast<BSTR*>(CoTaskMemAlloc(sizeof(BSTR)));
        return S_OK;
    });
    EXPECT_EQ(empty.value.Count(), 0U);
    const auto none = qv::ReceiveStrings(2, [](ULONG* count, BSTR**) {
        *count = 5;
        return S_OK;
    });
    EXPECT_EQ(none.value.Count(), 0U) << "a count without a block";
}

TEST(Exchange, OneStringIsArgumentAndResult) {
    const struct {
        const char* name;
        HRESULT status;
        bool frees;   // the argument, before another takes its place
        BSTR leaves;  // in the variable, where it frees
        const wchar_t* expected;
    } cases[] = {
        {"left alone", S_OK, false, nullptr, L"mine"},   {"replaced", S_OK, true, SysAllocString(L"yours"), L"yours"},
        {"emptied", S_FALSE, true, nullptr, L""},        {"failed, left alone", E_FAIL, false, nullptr, L""},
        {"failed, emptied", E_FAIL, true, nullptr, L""}, {"failed, poisoned", E_FAIL, true, Poison<OLECHAR>(), L""},
    };
    for (const auto& each : cases) {
        SCOPED_TRACE(each.name);
        const auto result = qv::Exchange(L"mine", [&](BSTR argument, BSTR* variable) {
            EXPECT_EQ(argument, *variable);
            EXPECT_EQ(qv::TextOf(argument), L"mine");
            if (each.frees) {
                SysFreeString(*variable);
                *variable = each.leaves;
            }
            return each.status;
        });
        EXPECT_EQ(result.status, each.status);
        EXPECT_EQ(qv::TextOf(result.value.Get()), each.expected);
    }
}

const CLSID kThrowingClass{0x7d0f0c03, 0x5a11, 0x4c1e, {1, 2, 3, 4, 5, 6, 7, 8}};

HRESULT CreateNothing(REFIID, void**) {
    throw std::runtime_error("no thing today");
}

TEST(ClassFactory, LetsNothingThrownOut) {
    qv::ComModule module;
    const qv::ObjectMapEntry map[] = {{&kThrowingClass, &CreateNothing}};
    const auto factory = qv::Receive<qv::ComPtr<IClassFactory>>(
        [&](auto out) { return qv::GetClassObject(module, map, kThrowingClass, IID_IClassFactory, out); });
    ASSERT_EQ(factory.status, S_OK);
    void* object = &module;
    EXPECT_EQ(factory.value->CreateInstance(nullptr, IID_IUnknown, &object), E_FAIL);
    EXPECT_EQ(object, nullptr);
}

}  // namespace
