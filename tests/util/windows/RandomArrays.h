#pragma once

#include <gtest/gtest.h>

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <random>
#include <string>
#include <string_view>

#include "support/Com.h"
#include "support/Effort.h"

namespace tev::test {

// Sizes and texts for arrays, the same ones in each run.
class RandomArrays {
 public:
    std::size_t Below(std::size_t end) { return engine_() % end; }

    // Few elements mostly, and none at times.
    std::size_t Size() { return Below(16) == 0 ? Below(300) : Below(9); }

    template <typename Number>
    Number Bits() {
        const std::uint64_t bits = engine_();
        Number number;
        std::memcpy(&number, &bits, sizeof number);
        return number;
    }

    // In the ANSI code page; without a NUL.
    std::string Text() {
        std::string text(Length(), '\0');
        for (char& c : text) c = static_cast<char>(1 + Below(127));
        if (!text.empty() && Below(4) == 0)
            text[Below(text.size())] = static_cast<char>(128 + Below(128));
        return text;
    }

    // Some characters are beyond the code page, and a NUL stands at the front of few texts.
    std::wstring Wide() {
        std::wstring text(Length(), L'\0');
        for (wchar_t& c : text) c = static_cast<wchar_t>(1 + Below(127));
        if (!text.empty() && Below(4) == 0) text[Below(text.size())] = OddCharacter();
        return text;
    }

 private:
    std::size_t Length() { return Below(Below(8) == 0 ? 200 : 12); }

    wchar_t OddCharacter() {
        constexpr std::wstring_view kOdd = L"\u00e9\u0080\u0081\u00ff\u20ac\u4e2d\xd834\xdd1e";
        return Below(20) == 0 ? L'\0' : kOdd[Below(kOdd.size())];
    }

    std::mt19937_64 engine_{20240312};
};

// Calls `compare` with random sizes until a million elements have been seen, so many of them at
// each size, or one is wrong.
template <typename Compare>
void ForRandomSizes(std::int64_t elementsEach, Compare compare) {
    RandomArrays random;
    const std::int64_t wanted = Repetitions(1'000'000);
    for (std::int64_t done = 0; done < wanted && !testing::Test::HasFailure();) {
        const std::size_t size = random.Size();
        compare(random, size);
        done += elementsEach * static_cast<std::int64_t>(size);
    }
}

inline std::size_t CountIn(SAFEARRAY* array) {
    std::size_t count = 1;
    for (UINT i = 1; i <= SafeArrayGetDim(array); ++i)
        count *= static_cast<std::size_t>(BoundsOf(array, i).first);
    return count;
}

// Of the same kind and with the same bounds, and unlocked?
inline testing::AssertionResult HaveOneShape(SAFEARRAY* made, SAFEARRAY* expected) {
    if (made == nullptr) return testing::AssertionFailure() << "no array";
    if (ElementTypeOf(made) != ElementTypeOf(expected) || made->fFeatures != expected->fFeatures)
        return testing::AssertionFailure() << "elements of type " << ElementTypeOf(made);
    if (SafeArrayGetDim(made) != SafeArrayGetDim(expected))
        return testing::AssertionFailure() << SafeArrayGetDim(made) << " dimensions";
    for (UINT i = 1; i <= SafeArrayGetDim(made); ++i)
        if (BoundsOf(made, i) != BoundsOf(expected, i))
            return testing::AssertionFailure() << "other bounds in dimension " << i;
    if (made->cLocks != 0) return testing::AssertionFailure() << "a lock is left";
    return testing::AssertionSuccess();
}

// Elements are compared as bytes.
template <typename Number>
testing::AssertionResult HoldTheSameNumbers(SAFEARRAY* made, SAFEARRAY* expected) {
    const testing::AssertionResult shape = HaveOneShape(made, expected);
    if (!shape) return shape;
    const auto* left = static_cast<const Number*>(made->pvData);
    const auto* right = static_cast<const Number*>(expected->pvData);
    for (std::size_t i = 0; i < CountIn(expected); ++i)
        if (std::memcmp(left + i, right + i, sizeof *left) != 0)
            return testing::AssertionFailure()
                   << left[i] << " and not " << right[i] << " in place " << i;
    return testing::AssertionSuccess();
}

inline std::wstring Shown(BSTR text) {
    return text == nullptr ? L"(null)" : std::wstring(text, SysStringLen(text));
}

inline testing::AssertionResult HoldTheSameTexts(SAFEARRAY* made, SAFEARRAY* expected) {
    const testing::AssertionResult shape = HaveOneShape(made, expected);
    if (!shape) return shape;
    const auto* left = static_cast<const BSTR*>(made->pvData);
    const auto* right = static_cast<const BSTR*>(expected->pvData);
    for (std::size_t i = 0; i < CountIn(expected); ++i)
        if (Shown(left[i]) != Shown(right[i]))
            return testing::AssertionFailure()
                   << testing::PrintToString(Shown(left[i])) << " and not "
                   << testing::PrintToString(Shown(right[i])) << " in place " << i;
    return testing::AssertionSuccess();
}

}  // namespace tev::test
