#pragma once

#include <TEVSystemLib/TEVSystemExport.h>

#include <cstddef>

namespace TAMO::TEV::System {

// Base of the framework's identifiable objects. An object has no identity until a derived class
// sets one, once. Objects are not copied: a copy has no identity, and assignment throws.
//
// Threads: an object belongs to one thread at a time.
class TEVSYSTEMLIB_API TEVSystemObject {
 public:
    // Releases the texts of the identity.
    virtual ~TEVSystemObject();

    // True for the same object only, not for an equal identity.
    virtual bool operator==(const TEVSystemObject& other) const;
    // The negation of the virtual operator==, so that a derived class's equality is honoured.
    virtual bool operator!=(const TEVSystemObject& other) const;

    // The identity; null or 0 without one. The texts belong to the object and last as long as
    // its identity.
    const char* GetTEVSystemObjectID() const;
    const char* GetTEVSystemObjectClassName() const;
    std::size_t GetObjectCount() const;

    // True once the object has its identity.
    bool IsValidTEVSystemObject() const;

 protected:
    // Without identity.
    TEVSystemObject();

    // Gives the object its identity, "className:count:name" with both texts trimmed if a plain
    // space stands at an end and the count as TEVUtilString::ToString writes it. False with
    // nothing changed when it has one already, a text is null or empty after trimming, or
    // memory is exhausted.
    bool SetTEVSystemObject(const char* const name, const char* const className, std::size_t count);

 private:
    TEVSystemObject(const TEVSystemObject& other);
    // Throws std::runtime_error "Invalid operation - assignment operation is not allowed.";
    // when memory is exhausted with the text for that.
    virtual TEVSystemObject& operator=(const TEVSystemObject& other);
    void CleanupTEVSystemObject();

    char* objectID_ = nullptr;
    char* className_ = nullptr;
    std::size_t objectCount_ = 0;
};

}  // namespace TAMO::TEV::System
