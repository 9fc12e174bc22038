#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <windows.h>

#include <cstdlib>
#include <map>
#include <string_view>
#include <utility>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/Errors.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"
#include "TEVSystemLib/util/string/detail/LocaleText.h"
#include "TEVSystemLib/util/windows/detail/EnvironmentList.h"
#include "TEVSystemLib/util/windows/detail/Handle.h"
#include "TEVSystemLib/util/windows/detail/ProcessEnvironment.h"
#include "TEVSystemLib/util/windows/detail/VariableEdit.h"

namespace TAMO::TEV::System::Util {

namespace {

struct EnvironmentBlockTraits {
    using Type = wchar_t*;
    static wchar_t* Invalid() { return nullptr; }
    static void Close(wchar_t* block) { FreeEnvironmentStringsW(block); }
};

std::string Trimmed(const char* text) {
    return std::string(detail::TrimIfSpaced(detail::OrEmpty(text)));
}

// An entry of the block; the rest points into the text.
struct Variable {
    detail::OwnedText text;
    std::string_view value;
};

// By name; the first of those that are named alike.
std::map<std::string_view, Variable> Variables(const wchar_t* block) {
    std::map<std::string_view, Variable> variables;
    for (std::wstring_view entry = block; !entry.empty(); entry = entry.data() + entry.size() + 1) {
        detail::OwnedText text = detail::ToLocaleIfPossible(entry);
        if (const auto split = detail::SplitEnvironmentEntry(detail::OrEmpty(text.get())))
            variables.try_emplace(split->name, Variable{std::move(text), split->value});
    }
    return variables;
}

}  // namespace

void TEVUtilWindows::GetEnv(const char* const name, char** value) try {
    if (value == nullptr) return;
    *value = nullptr;
    *value = detail::ReadVariableText(detail::OrEmpty(name)).release();
} catch (...) {
    return;
}

void TEVUtilWindows::GetPathEnvVariable(const char* const name, char** value) try {
    if (value == nullptr) return;
    *value = nullptr;
    if (const auto read = detail::ReadPathVariable(detail::OrEmpty(name)))
        detail::HandOut(*read, value);
} catch (...) {
    // KEEP: "encironment" is how hosts know the message.
    detail::ThrowRuntimeError(
        "Runtime error encountered while retrieving Windows System encironment variable.");
}

bool TEVUtilWindows::EnvironmentVariableExists(const char* const name) {
    return detail::TryReadVariable(detail::OrEmpty(name)).has_value();
}

bool TEVUtilWindows::GetCurrentProcessEnvironmentVariables(char**& names, char**& values,
                                                           std::size_t& count) try {
    names = nullptr;
    values = nullptr;
    count = 0;
    const detail::Handle<EnvironmentBlockTraits> block(GetEnvironmentStringsW());
    if (!block) return false;
    const auto variables = Variables(block.get());
    if (variables.empty()) return false;
    detail::OwnedTexts nameTexts(variables.size());
    detail::OwnedTexts valueTexts(variables.size());
    std::size_t i = 0;
    for (const auto& [name, variable] : variables) {
        nameTexts.Set(i, detail::MakeText(name));
        valueTexts.Set(i, detail::MakeText(variable.value));
        ++i;
    }
    names = nameTexts.release();
    values = valueTexts.release();
    count = variables.size();
    return true;
} catch (...) {
    return false;
}

bool TEVUtilWindows::SetSessionEnvironmentVariable(const char* const name,
                                                   const char* const value) try {
    const auto edit = detail::EditToSet(detail::OrEmpty(name), detail::OrEmpty(value));
    if (!edit) return false;
    const auto& [variable, text] = *edit;
    const BOOL isSet =
        SetEnvironmentVariableA(variable.c_str(), text.empty() ? nullptr : text.c_str());
    // The C runtime keeps a copy of its own, which must agree.
    _putenv_s(variable.c_str(), text.c_str());
    return isSet == TRUE;
} catch (...) {
    return false;
}

bool TEVUtilWindows::ModifySessionEnvironmentVariable(const char* const name,
                                                      const char* const value, bool prepend,
                                                      int operation) try {
    const std::string variable = Trimmed(name);
    const std::string element = Trimmed(value);
    if (variable.empty() || element.empty()) return false;
    const auto list = detail::ReadVariable(variable);
    const auto change = detail::ListChangeOf(prepend, operation);
    // KEEP: a variable that is not set is never created here: that is for the setter.
    if (!list || !change) return false;
    const auto changed = detail::ChangedList(*list, element, *change);
    return !changed || SetSessionEnvironmentVariable(variable.c_str(), changed->c_str());
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System::Util
