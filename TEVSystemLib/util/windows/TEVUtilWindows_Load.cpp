#include <TEVSystemLib/util/string/TEVUtilString.h>
#include <TEVSystemLib/util/windows/TEVUtilWindows.h>
#include <windows.h>

#include "TEVSystemLib/util/file/detail/PathText.h"
#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/LocaleText.h"
#include "TEVSystemLib/util/windows/detail/ModuleLoading.h"

namespace TAMO::TEV::System::Util {

namespace {

// Null when the system has no message, or the C locale lacks a character of it.
detail::OwnedText MessageInLocale(unsigned long error) {
    const detail::LocalText message = detail::SystemMessage(error);
    return detail::ToLocaleIfPossible(detail::OrEmpty(message.get()));
}

std::string Explain(unsigned long error) {
    if (error == ERROR_SUCCESS) return {};
    const std::string text = "Error code returned from the Windows system = " +
                             TEVUtilString::ToString(static_cast<long>(error));
    const detail::OwnedText message = MessageInLocale(error);
    return message ? text + ".\nWindows System error message: " + message.get() : text + ".";
}

}  // namespace

bool TEVUtilWindows::LoadModule(char const* const name, HINSTANCE__*& module, std::string& error,
                                char const** dirs, std::uint64_t count) try {
    error.clear();
    module = nullptr;
    const std::string path = detail::NormalisedPath(detail::OrEmpty(name));
    if (path.empty()) return false;
    const detail::LoadOutcome outcome =
        detail::LoadBySystem(path, detail::ExistingFolders(dirs, count));
    module = outcome.module;
    if (module == nullptr) error = Explain(outcome.error);
    return module != nullptr;
} catch (...) {
    return false;
}

bool TEVUtilWindows::LoadModule(char const* const name, HINSTANCE__*& module, char const** dirs,
                                std::uint64_t count, int* code) try {
    if (code != nullptr) *code = -1;
    module = nullptr;
    const std::string path = detail::NormalisedPath(detail::OrEmpty(name));
    if (path.empty()) return false;
    const auto folders = detail::ExistingFolders(dirs, count);
    if (folders.empty()) {
        const detail::LoadOutcome outcome = detail::LoadInOrdinaryOrder(path);
        module = outcome.module;
        // KEEP: the last error also after a success; hosts look at the result first.
        if (code != nullptr) *code = static_cast<int>(outcome.error);
        return module != nullptr;
    }
    module = detail::LoadBySystem(path, folders).module;
    if (code == nullptr) return module != nullptr;
    *code = 0;
    if (module == nullptr) {
        // KEEP: only a caller that asks for the code gets the second attempt.
        const detail::LoadOutcome outcome = detail::LoadInOrdinaryOrder(path);
        module = outcome.module;
        *code = static_cast<int>(outcome.error);
    }
    return module != nullptr;
} catch (...) {
    return false;
}

void TEVUtilWindows::FreeModuleHandle(HINSTANCE__*& module) {
    if (module != nullptr) FreeLibrary(module);
    module = nullptr;
}

}  // namespace TAMO::TEV::System::Util
