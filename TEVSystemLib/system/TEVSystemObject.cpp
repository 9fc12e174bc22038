#include <TEVSystemLib/system/TEVSysUtil.h>
#include <TEVSystemLib/system/TEVSystemObject.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>

#include "TEVSystemLib/util/string/detail/Errors.h"

namespace TAMO::TEV::System {

TEVSystemObject::TEVSystemObject() = default;

// KEEP: an identity names one object, so a copy has none.
TEVSystemObject::TEVSystemObject(const TEVSystemObject&) : TEVSystemObject() {}

TEVSystemObject::~TEVSystemObject() { CleanupTEVSystemObject(); }

// KEEP: the same object, whatever the identifiers say.
bool TEVSystemObject::operator==(const TEVSystemObject& other) const { return this == &other; }

bool TEVSystemObject::operator!=(const TEVSystemObject& other) const { return !(*this == other); }

// NOLINTNEXTLINE(bugprone-unhandled-self-assignment,cert-oop54-cpp): it never assigns.
TEVSystemObject& TEVSystemObject::operator=(const TEVSystemObject&) {
    Util::detail::ThrowRuntimeError("Invalid operation - assignment operation is not allowed.");
}

const char* TEVSystemObject::GetTEVSystemObjectID() const { return objectID_; }

const char* TEVSystemObject::GetTEVSystemObjectClassName() const { return className_; }

std::size_t TEVSystemObject::GetObjectCount() const { return objectCount_; }

bool TEVSystemObject::IsValidTEVSystemObject() const { return objectID_ != nullptr; }

bool TEVSystemObject::SetTEVSystemObject(const char* const name, const char* const className,
                                         std::size_t count) {
    if (IsValidTEVSystemObject()) return false;
    objectID_ = Util::TEVSysUtil::GetTEVSystemObjectID(name, className, count, &className_);
    if (!IsValidTEVSystemObject()) return false;
    objectCount_ = count;
    return true;
}

void TEVSystemObject::CleanupTEVSystemObject() {
    Util::TEVUtilString::DeleteCString(&objectID_);
    Util::TEVUtilString::DeleteCString(&className_);
    objectCount_ = 0;
}

}  // namespace TAMO::TEV::System
