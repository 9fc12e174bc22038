#include "TEVSystemLib/util/string/detail/Errors.h"

#include <new>
#include <stdexcept>

namespace TAMO::TEV::System::Util::detail {

namespace {

// Made at load: a copy of it is thrown without an allocation, when there is no memory left to make
// it.
const std::runtime_error kOutOfMemory(
    "Failed to allocate enough memory to perform requested operation.");

}  // namespace

// The exceptions copy their message: with exhausted memory the one made at load leaves instead.
void ThrowInvalidArgument(const char* message) try {
    throw std::invalid_argument(message);
} catch (const std::bad_alloc&) {
    throw std::runtime_error(kOutOfMemory);
}

void ThrowRuntimeError(const char* message) try {
    throw std::runtime_error(message);
} catch (const std::bad_alloc&) {
    throw std::runtime_error(kOutOfMemory);
}

void ThrowInternalError() { ThrowRuntimeError("Internal system errors encountered."); }

void RethrowTranslated() {
    try {
        throw;
    } catch (const std::invalid_argument&) {
        throw;
    } catch (const std::runtime_error&) {
        throw;
    } catch (const std::bad_alloc&) {
        throw std::runtime_error(kOutOfMemory);
    } catch (...) {
        ThrowRuntimeError("Exception caught while carrying out requested operation.");
    }
}

}  // namespace TAMO::TEV::System::Util::detail
