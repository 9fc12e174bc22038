#pragma once

#include <utility>

namespace TAMO::TEV::System::Util::detail {

// Owns something that the system wants back. Traits: Type, Invalid(), Close(Type).
template <typename Traits>
class Handle {
 public:
    using Type = typename Traits::Type;

    explicit Handle(Type handle) : handle_(handle) {}
    Handle(Handle&& other) noexcept : handle_(std::exchange(other.handle_, Traits::Invalid())) {}
    ~Handle() {
        if (*this) Traits::Close(handle_);
    }
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;

    explicit operator bool() const { return handle_ != Traits::Invalid(); }
    Type get() const { return handle_; }
    Type release() { return std::exchange(handle_, Traits::Invalid()); }

 private:
    Type handle_;
};

}  // namespace TAMO::TEV::System::Util::detail
