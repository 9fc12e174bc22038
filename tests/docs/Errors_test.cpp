#include <TEVSystemLib/util/file/TEVUtilFile.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <typeinfo>
#include <vector>

#include "docs/Page.h"

namespace {

using TAMO::TEV::System::Util::TEVUtilFile;
using TAMO::TEV::System::Util::TEVUtilString;
using TAMO::TEV::System::Util::TEVUtilWindows;
using tev::test::Example;

// The output and the BSTR that the page speaks of.
char* out = nullptr;
wchar_t* null = nullptr;

template <typename Call>
std::string TextThrown(const std::type_info& type, Call call) try {
    static_cast<void>(call());
    return "no exception";
} catch (const std::exception& error) {
    return typeid(error) == type ? std::string("`") + error.what() + '`' : typeid(error).name();
}

// What is run is the text on the page itself.
#define TEV_THROWS(Type, ...)                                                             \
    {                                                                                     \
#__VA_ARGS__, [] { return TextThrown(typeid(Type), [] { return __VA_ARGS__; }); } \
    }
#define TEV_REFUSES(...) TEV_THROWS(std::invalid_argument, __VA_ARGS__)
#define TEV_FAILS(...) TEV_THROWS(std::runtime_error, __VA_ARGS__)

TEST(ErrorsPage, TextsAndTypesHold) {
    const std::vector<Example> examples = {
        TEV_REFUSES(TEVUtilString::Find(nullptr, "a")),
        TEV_REFUSES(TEVUtilString::IndexOf(nullptr, "a")),
        TEV_REFUSES(TEVUtilString::LastIndexOf(nullptr, "a")),
        TEV_REFUSES(TEVUtilString::Contains(nullptr, "a")),
        TEV_REFUSES(TEVUtilString::StartWith("a", nullptr)),
        TEV_REFUSES(TEVUtilString::EndWith("a", nullptr)),
        TEV_REFUSES(TEVUtilString::Replace(nullptr, "a", "b")),
        TEV_REFUSES(TEVUtilString::ToLower(nullptr)),
        TEV_REFUSES(TEVUtilString::ToUpper("", &out)),
        TEV_REFUSES(TEVUtilString::Trim(nullptr)),
        TEV_REFUSES(TEVUtilString::GetKeyFromKeyValuePair("a")),
        TEV_REFUSES(TEVUtilString::GetKeyFromKeyValuePair("a=1", nullptr)),
        TEV_REFUSES(TEVUtilString::GetValueFromKeyValuePair("a=1", nullptr)),
        TEV_REFUSES(TEVUtilFile::GetFileName("", &out)),
        TEV_REFUSES(TEVUtilFile::GetFileName("C:\\a\\", &out)),
        TEV_FAILS(TEVUtilString::ConvertFromWCharToChar(L"\u4e2d", &out)),
        TEV_FAILS(TEVUtilWindows::CompareBSTR(false, null, null)),
    };
    tev::test::ExpectRowsHold(tev::test::RowsOf("errors.md", "Exceptions"), examples);
}

}  // namespace
