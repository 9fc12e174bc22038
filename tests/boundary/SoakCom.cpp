#include <TEVSystemLib/util/windows/TEVUtilWindows.h>

#include <map>

#include "boundary/Jobs.h"
#include "support/Com.h"
#include "support/Owned.h"

namespace tev::test {

namespace {

using TAMO::TEV::System::Util::TEVUtilWindows;

std::string Doubles(unsigned seed) {
    double numbers[] = {seed + 0.5, 2};
    Variant variant;
    TEVUtilWindows::SetDoubleArrayVARIANT(numbers, 2, variant.Out());
    double* back = nullptr;
    std::uint64_t count = 0;
    TEVUtilWindows::ExtractDoubleArrayFromVARIANT(&back, count, variant.get());
    const std::string line = Line(count, back[0], back[1]);
    TEVUtilWindows::DeleteDoubleBuffer(&back);
    return line;
}

std::string Strings(unsigned seed) {
    const std::string number = Number(seed);
    const char* rows[] = {number.c_str(), "second"};
    const char** texts = rows;
    Variant variant;
    TEVUtilWindows::SetStringArrayVARIANT(texts, 2, variant.Out());
    char** back = nullptr;
    std::uint64_t count = 0;
    TEVUtilWindows::ExtractStringArrayFromVariant(back, count, variant.get());
    const std::string line = Line(count, back[0], back[1]);
    TEVUtilWindows::DeleteCStringArray(back, count);
    return line;
}

std::string Tables(unsigned seed) {
    std::string value = Number(seed);
    const std::map<std::string, char*> table{{"key", value.data()}};
    Variant variant;
    TEVUtilWindows::CreateKeyValueDataVariant(&table, variant.Out(), "first", "entry");
    std::map<std::string, char*> back;
    std::string line = Line(TEVUtilWindows::ExtractKeyValueDataFromVARIANT(variant.get(), back));
    for (auto& [key, text] : back) {
        line += Line(key, text);
        TEVUtilWindows::DeleteCharBuffer(&text);
    }
    return line;
}

std::string ArraysOfVariants(unsigned seed) {
    SAFEARRAY* array = nullptr;
    const bool isMade = TEVUtilWindows::CreateSafeArrayOfVariants(&array, seed + 1);
    const LONG count = BoundsOf(array, 1).first;
    return Line(isMade, count, TEVUtilWindows::DestroySafeArray(array));
}

std::string Bstrs(unsigned seed) {
    Bstr text;
    TEVUtilWindows::FromMultibyteCharToBSTR(Number(seed).c_str(), text.Out());
    const std::uint64_t length = TEVUtilWindows::GetBSTRLength(text.get());
    BSTR copy = nullptr;
    TEVUtilWindows::CopyBSTR(text.get(), &copy);
    const std::string line = Line(length, Narrow(copy));
    TEVUtilWindows::FreeBSTR(&copy);
    return line;
}

std::string MeasuredWide(unsigned seed) {
    WideText value;
    WideText uncertainty;
    TEVUtilWindows::SignificantFigures(seed * 7919 + 1.5, 0.25, value.Out(), uncertainty.Out(),
                                       seed % 2 == 0);
    return Narrow(value.str()) + " +- " + Narrow(uncertainty.str());
}

}  // namespace

std::vector<Job> ComJobs() {
    return {{"doubles", Doubles}, {"strings", Strings},
            {"tables", Tables},   {"arrays of variants", ArraysOfVariants},
            {"BSTRs", Bstrs},     {"measured values, wide", MeasuredWide}};
}

}  // namespace tev::test
