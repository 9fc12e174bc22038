#include <TEVSystemLib/util/memory/TEVUtilMemory.h>
#include <TEVSystemLib/util/string/TEVStringOps.h>
#include <TEVSystemLib/util/string/TEVUtilString.h>

#include <algorithm>
#include <cstring>
#include <cwchar>

#include "TEVSystemLib/util/string/detail/AsciiText.h"
#include "TEVSystemLib/util/string/detail/HandOut.h"

namespace TAMO::TEV::System::Util {

namespace {

bool IsGiven(const std::size_t* length) { return length != nullptr && *length != 0; }

bool LiesWithin(const char* text, std::size_t start, std::size_t count) {
    const std::size_t length = detail::OrEmpty(text).size();
    return count > 0 && count <= length && start <= length - count;
}

}  // namespace

void TEVUtilString::DeleteCString(char** text) { TEVUtilMemory::DeallocateCharArray(text); }

void TEVUtilString::DeleteCStringArray(char**& array, std::size_t count) {
    TEVUtilMemory::DeallocateCStringArray(array, count);
}

void TEVUtilString::DeleteConstCStringArray(const char**& array, std::size_t count) {
    TEVUtilMemory::DeallocateConstCStringArray(array, count);
}

void TEVUtilString::DeleteWCharBuffer(wchar_t** text) {
    TEVUtilMemory::DeallocateWCharTArray(text);
}

void TEVUtilString::DeleteUnsignedCharArray(unsigned char** array) {
    TEVUtilMemory::DeallocateUnsignedCharArray(array);
}

std::size_t TEVUtilString::GetCharArray(std::size_t count, char** out) {
    return TEVUtilMemory::AllocateCharArray(count, out);
}

std::size_t TEVUtilString::GetUnsignedCharArray(std::size_t count, unsigned char** out) {
    return TEVUtilMemory::AllocateUnsignedCharArray(count, out);
}

std::size_t TEVUtilString::GetCStringArray(char**& out, std::size_t count) {
    return TEVUtilMemory::AllocateCStringArray(out, count);
}

std::size_t TEVUtilString::GetConstCStringArray(const char**& out, std::size_t count) {
    return TEVUtilMemory::AllocateConstCStringArray(out, count);
}

// KEEP: one byte more than the form without `fill`, which counts bytes, not characters.
std::size_t TEVUtilString::GetCharArray(std::size_t count, char** out, char fill) try {
    if (out == nullptr) return 0;
    *out = nullptr;
    if (count == 0) return 0;
    detail::OwnedText text = detail::MakeText(count);
    std::fill_n(text.get(), count, fill);
    *out = text.release();
    return count;
} catch (...) {
    return 0;
}

bool TEVUtilString::Copy(const char* const source, char** copy, std::size_t* length) try {
    if (copy == nullptr) return false;
    *copy = nullptr;
    if (source == nullptr) return false;
    // KEEP: a given length is trusted, whatever ends the text before it.
    const std::size_t count = IsGiven(length) ? *length : detail::ViewOf(source).size();
    return detail::HandOutUnlessEmpty({source, count}, copy);
} catch (...) {
    return false;
}

bool TEVUtilString::Copy(const wchar_t* source, wchar_t** copy, std::size_t* length) try {
    if (copy == nullptr) return false;
    *copy = nullptr;
    if (source == nullptr) return false;
    // KEEP: an empty source is a success here, unlike in the narrow form.
    const std::size_t count = IsGiven(length) ? *length : std::wcslen(source);
    detail::OwnedWideText text = detail::MakeWideText(count);
    std::copy_n(source, wcsnlen(source, count), text.get());
    *copy = text.release();
    return true;
} catch (...) {
    return false;
}

bool TEVUtilString::Copy(const char*& source, std::vector<char*>& out, bool deleteSource,
                         std::size_t* length) try {
    char* copied = nullptr;
    if (!Copy(source, &copied, length)) return false;
    detail::OwnedText copy(copied);
    out.push_back(copy.get());
    copy.release();
    if (deleteSource) {
        TEVStringOps::Delete(const_cast<char*>(source));
        source = nullptr;
    }
    return true;
} catch (...) {
    return false;
}

bool TEVUtilString::SubString(const char* const text, std::size_t start, std::size_t count,
                              std::string& out) try {
    if (!LiesWithin(text, start, count)) return false;
    out = std::string(text + start, count);
    return true;
} catch (...) {
    return false;
}

bool TEVUtilString::SubString(const char* const text, std::size_t start, std::size_t count,
                              char** out) try {
    if (out == nullptr) return false;
    *out = nullptr;
    return LiesWithin(text, start, count) && detail::HandOut({text + start, count}, out);
} catch (...) {
    return false;
}

bool TEVUtilString::GetBytes(const char* const text, std::size_t start, std::size_t count,
                             char** out) try {
    if (out == nullptr) return false;
    *out = nullptr;
    // KEEP: the caller vouches for the range; the text may hold NUL bytes.
    return text != nullptr && detail::HandOutUnlessEmpty({text + start, count}, out);
} catch (...) {
    return false;
}

bool TEVUtilString::GetBytes(const char* const text, std::size_t start, std::size_t count,
                             std::string& out) try {
    std::string bytes;
    if (text != nullptr) bytes.assign(text + start, count);
    out = std::move(bytes);
    return !out.empty();
} catch (...) {
    out.clear();
    return false;
}

bool TEVUtilString::MemCopyTrimmedString(const char* const text, char** out) try {
    if (out == nullptr) return false;
    // KEEP: a failure releases what the output held on entry; a success overwrites it.
    detail::OwnedText held(*out);
    *out = nullptr;
    const bool copied = detail::HandOutUnlessEmpty(detail::Trim(detail::OrEmpty(text)), out);
    if (copied) static_cast<void>(held.release());
    return copied;
} catch (...) {
    return false;
}

}  // namespace TAMO::TEV::System::Util
