#pragma once

#include <gtest/gtest.h>

#include <cstdint>
#include <utility>

#include "support/Com.h"

namespace tev::test {

// One more than an array of the system can count.
constexpr std::uint64_t kBeyondTheSystem = std::uint64_t{1} << 32;

// Checks that a call fails, and that it empties the variant without releasing what that held.
template <typename Call>
void ExpectEmptiedWithoutRelease(Call call) {
    const SafeArray held(VT_BSTR, {{1, 0}});
    ASSERT_TRUE(PutText(held.get(), {0}, L"held"));
    VARIANT out;
    out.vt = VT_ARRAY | VT_BSTR;
    out.parray = held.get();
    EXPECT_FALSE(call(&out));
    EXPECT_EQ(out.vt, VT_EMPTY);
    EXPECT_EQ(TextAt(held.get(), {0}), L"held");
    EXPECT_EQ(held->cLocks, 0u);
}

// Variants that no function takes for an array of `type`. What they refer to lives as long as the
// fixture; nothing in it owns an array twice.
class RefusedVariants {
 public:
    explicit RefusedVariants(VARTYPE type) : type_(type), good_(type, {{2, 0}}) {}

    // Calls `check` with a name and a variant, or null, for each of them.
    template <typename Check>
    void ForEach(Check check) {
        check("null", nullptr);
        CheckType("empty", VT_EMPTY, check);
        CheckType("no array", type_, check);
        CheckType("array of bytes", VT_ARRAY | VT_UI1, check);
        CheckType("array of variants", VT_ARRAY | VT_VARIANT, check);
        CheckType("array of unsigned", VT_ARRAY | VT_UI4, check);
        CheckType("array of float", VT_ARRAY | VT_R4, check);
        CheckType("vector", VT_VECTOR | type_, check);
        for (const VARTYPE other : {VT_R8, VT_I4, VT_BSTR})
            if (other != type_) CheckType("array of another kind", VT_ARRAY | other, check);
        CheckReference(check);
        CheckArray("null array", nullptr, check);
        CheckBounds("lower bound 1", {2, 1}, check);
        CheckBounds("lower bound -1", {2, -1}, check);
        CheckNoElements(check);
    }

 private:
    template <typename Check>
    void CheckType(const char* name, int type, Check check) {
        VARIANT variant = {};
        variant.vt = static_cast<VARTYPE>(type);
        variant.parray = good_.get();
        check(name, &variant);
    }
    template <typename Check>
    void CheckReference(Check check) {
        SAFEARRAY* array = good_.get();
        VARIANT variant = {};
        variant.vt = static_cast<VARTYPE>(VT_BYREF | VT_ARRAY | type_);
        variant.pparray = &array;
        check("reference", &variant);
    }
    template <typename Check>
    void CheckArray(const char* name, SAFEARRAY* array, Check check) {
        VARIANT variant = {};
        variant.vt = static_cast<VARTYPE>(VT_ARRAY | type_);
        variant.parray = array;
        check(name, &variant);
    }
    template <typename Check>
    void CheckBounds(const char* name, SAFEARRAYBOUND bound, Check check) {
        const SafeArray array(type_, {bound});
        CheckArray(name, array.get(), check);
    }
    template <typename Check>
    void CheckNoElements(Check check) {
        const ULONG count = std::exchange(good_->rgsabound[0].cElements, 0u);
        CheckArray("no elements", good_.get(), check);
        good_->rgsabound[0].cElements = count;
    }

    VARTYPE type_;
    SafeArray good_;
};

// An array of one dimension whose elements have no memory.
inline SafeArray ArrayWithoutData(VARTYPE type, ULONG count) {
    SAFEARRAY* array = nullptr;
    EXPECT_TRUE(SUCCEEDED(SafeArrayAllocDescriptorEx(type, 1, &array)));
    array->rgsabound[0] = {count, 0};
    return SafeArray(array);
}

// The system refuses a further lock on an array that has so many.
constexpr ULONG kMostLocks = 0xffff;

}  // namespace tev::test
