#pragma once

// The exceptions that leave the library.
namespace TAMO::TEV::System::Util::detail {

[[noreturn]] void ThrowInvalidArgument(const char* message);
[[noreturn]] void ThrowRuntimeError(const char* message);
[[noreturn]] void ThrowInternalError();

// For the handler of a function that throws: what is promised passes on, exhausted memory and
// anything else becomes a std::runtime_error.
[[noreturn]] void RethrowTranslated();

}  // namespace TAMO::TEV::System::Util::detail
