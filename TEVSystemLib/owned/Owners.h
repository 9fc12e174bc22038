#pragma once

#include <TEVSystemLib/owned/OwnerKinds.h>

#include <cstddef>
#include <type_traits>
#include <utility>

namespace TAMO::TEV::System::Host {

template <typename Kind>
class Owner;
template <typename Kind>
class OwnedArray;

// Release what the owner holds, then give what a function of the library fills:
//     TEVUtilString::Copy(source, Out(text), nullptr);
// One owner a call: it must not hold what the same call reads (text.get()), nor be filled twice.
// The count of an array comes from the call through Count, or is known before:
//     TEVIO::readFile(path, Out(content), Count(content));
//     TEVUtilString::GetBytes(text, start, count, Out(bytes, count));
template <typename Kind>
typename Kind::Slot Out(Owner<Kind>& owner) noexcept;
template <typename Kind>
typename Kind::Slot Out(OwnedArray<Kind>& array, std::size_t count = 0) noexcept;

// The array as it is, for the functions that change one:
//     TEVUtilString::AddEntryToStringArray(InOut(names), "last", Count(names), true);
template <typename Kind>
typename Kind::Slot InOut(OwnedArray<Kind>& array) noexcept;

// The count that belongs to Out or InOut of the same array.
template <typename Kind>
std::size_t& Count(OwnedArray<Kind>& array) noexcept;

// The sole owner of one thing that the library handed out, released by the library's own function
// at the end of the owner's life. Moves, never copies; empty at first. Threads: as a pointer.
template <typename Kind>
class Owner {
 public:
    // What the library hands out, what is lent to readers, and what the library's functions fill.
    using Pointer = typename Kind::Pointer;
    using Borrowed = typename Kind::Borrowed;
    using Slot = typename Kind::Slot;

    // Empty.
    Owner() = default;
    // Takes over what the library handed out; other pointers are refused by the compiler.
    explicit Owner(Pointer held) noexcept : held_(held) {}
    template <typename Foreign>
    explicit Owner(Foreign* foreign) = delete;
    // Takes over what another owner holds, and leaves that one empty.
    Owner(Owner&& other) noexcept : held_(other.release()) {}
    Owner& operator=(Owner&& other) noexcept {
        if (this != &other) {
            Reset();
            held_ = other.release();
        }
        return *this;
    }
    // Never copied.
    Owner(const Owner&) = delete;
    Owner& operator=(const Owner&) = delete;
    // Releases what is still held.
    ~Owner() { Reset(); }

    // Lent, null when empty; valid until this owner releases it.
    Borrowed get() const noexcept { return held_; }
    std::add_lvalue_reference_t<std::remove_pointer_t<Borrowed>> operator*() const {
        return *held_;
    }
    Borrowed operator->() const noexcept { return held_; }
    explicit operator bool() const noexcept { return held_ != nullptr; }
    // The text, empty when this owner is; for owners of texts.
    auto View() const { return Kind::View(held_); }

    // Gives it up; the caller releases it.
    [[nodiscard]] Pointer release() noexcept { return std::exchange(held_, nullptr); }
    // Releases it now.
    void Reset() noexcept { Kind::Release(held_); }

    friend Slot Out<Kind>(Owner& owner) noexcept;

 private:
    Pointer held_ = nullptr;
};

template <typename Kind>
typename Kind::Slot Out(Owner<Kind>& owner) noexcept {
    owner.Reset();
    return Kind::SlotOf(owner.held_);
}

// A C string, char**.
using OwnedText = Owner<TextKind>;
// A wide C string, wchar_t**; NOT A BSTR, although the compiler cannot tell them apart.
using OwnedWideText = Owner<WideTextKind>;
// A BSTR, wchar_t** of CopyBSTR, FromMultibyteCharToBSTR and TEVUtilWindows::SignificantFigures.
using OwnedBstr = Owner<BstrKind>;
// A module of LoadModule; releasing it may unload its code.
using OwnedModule = Owner<ModuleKind>;
// Messages by severity, of GetMsgsMap: *messages goes to AddMessage.
using OwnedMessages = Owner<MessagesKind>;
// Messages of GetMsgsVector.
using OwnedMessageList = Owner<MessageListKind>;
// An array of CreateSafeArrayOfVariants that is in no variant.
using OwnedSafeArray = Owner<SafeArrayKind>;

// The sole owner of an array and its count. Moves, never copies; empty at first.
template <typename Kind>
class OwnedArray {
 public:
    // An element as the library hands it out, as readers see it, and the form in which the
    // library's functions take the array as an output.
    using Element = typename Kind::Element;
    using Read = typename Kind::Read;
    using Slot = typename Kind::Slot;

    // Empty.
    OwnedArray() = default;
    // Takes over an array of `count` elements that the library handed out.
    OwnedArray(Element* elements, std::size_t count) noexcept
        : elements_(elements), count_(count) {}
    // Takes over what another owner holds, and leaves that one empty.
    OwnedArray(OwnedArray&& other) noexcept { Swap(other); }
    OwnedArray& operator=(OwnedArray&& other) noexcept {
        OwnedArray moved(std::move(other));
        Swap(moved);
        return *this;
    }
    // Never copied.
    OwnedArray(const OwnedArray&) = delete;
    OwnedArray& operator=(const OwnedArray&) = delete;
    // Releases what is still held.
    ~OwnedArray() { Reset(); }

    // The elements, for range-for; the strings of a text array may be null.
    const Read* begin() const noexcept { return elements_; }
    const Read* end() const noexcept { return elements_ + size(); }
    const Read* data() const noexcept { return elements_; }
    // For writing; of a text array the strings stay its own.
    Element* data() noexcept { return elements_; }
    // 0 without an array, whatever a failed call left as the count.
    std::size_t size() const noexcept { return elements_ == nullptr ? 0 : count_; }
    bool empty() const noexcept { return size() == 0; }
    // The index must be below the size.
    Read operator[](std::size_t index) const { return elements_[index]; }

    // Releases the array now.
    void Reset() noexcept {
        Kind::Release(elements_, size());
        count_ = 0;
    }

    friend Slot Out<Kind>(OwnedArray& array, std::size_t count) noexcept;
    friend Slot InOut<Kind>(OwnedArray& array) noexcept;
    friend std::size_t& Count<Kind>(OwnedArray& array) noexcept;

 private:
    void Swap(OwnedArray& other) noexcept {
        std::swap(elements_, other.elements_);
        std::swap(count_, other.count_);
    }

    Element* elements_ = nullptr;
    std::size_t count_ = 0;
};

template <typename Kind>
typename Kind::Slot Out(OwnedArray<Kind>& array, std::size_t count) noexcept {
    array.Reset();
    array.count_ = count;
    return Kind::SlotOf(array.elements_);
}

template <typename Kind>
typename Kind::Slot InOut(OwnedArray<Kind>& array) noexcept {
    return Kind::SlotOf(array.elements_);
}

template <typename Kind>
std::size_t& Count(OwnedArray<Kind>& array) noexcept {
    return array.count_;
}

// C strings, char**& and a count.
using OwnedTextArray = OwnedArray<TextArrayKind>;
// Bytes, unsigned char**.
using OwnedBytes = OwnedArray<BytesKind>;
// Bytes that come as char** with a count: of TEVIO::readFile, Base64Decode, GetBytes.
using OwnedBuffer = OwnedArray<BufferKind>;
// Numbers of ExtractDoubleArrayFromVARIANT and ExtractIntArrayFromVARIANT.
using OwnedDoubles = OwnedArray<DoublesKind>;
using OwnedInts = OwnedArray<IntsKind>;

}  // namespace TAMO::TEV::System::Host
