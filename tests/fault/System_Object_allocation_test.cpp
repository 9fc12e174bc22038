// Identities and levels when memory is exhausted at any step.
#include <TEVSystemLib/system/TEVSysUtil.h>
#include <TEVSystemLib/system/XCode.h>
#include <gtest/gtest.h>

#include <optional>
#include <stdexcept>
#include <string>

#include "fault/TextRows.h"
#include "support/Owned.h"
#include "system/Identity.h"

// The class is opened after all other headers: copy, assignment and cleanup are private.
#define private public
#include <TEVSystemLib/system/TEVSystemObject.h>
#undef private

namespace {

using namespace tev::fault;
using TAMO::TEV::System::TEVSystemObject;
using TAMO::TEV::System::XCode;
using TAMO::TEV::System::Util::TEVSysUtil;
using tev::test::ExpectIdentity;
using tev::test::ExpectNoIdentity;
using tev::test::Text;

constexpr const char* kName = "the left one of the two views";
constexpr const char* kClass = "ImageViewWithALongName";
constexpr const char* kIdentifier = "ImageViewWithALongName:3:the left one of the two views";

class Thing : public TEVSystemObject {
 public:
    Thing() = default;
    Thing(const Thing&) = default;
    using TEVSystemObject::SetTEVSystemObject;
};

class Identified : public Thing {
 public:
    Identified() { SetTEVSystemObject(kName, kClass, 3); }
};

void MakesAnIdentifierAndACopy(Attempt& attempt) {
    char stale[] = "";
    char* copy = stale;
    const Text identifier(
        attempt.Call([&] { return TEVSysUtil::GetTEVSystemObjectID(kName, kClass, 3, &copy); }));
    const Text copied(copy);
    const bool succeeded = attempt.Succeeded(!identifier.IsNull());
    EXPECT_EQ(identifier.str(), succeeded ? kIdentifier : "(null)");
    EXPECT_EQ(copied.str(), succeeded ? kClass : "(null)");
}

void SetsAnIdentity(Attempt& attempt) {
    Thing thing;
    const bool isSet = attempt.Call([&] { return thing.SetTEVSystemObject(kName, kClass, 3); });
    if (!attempt.Succeeded(isSet)) {
        ExpectNoIdentity(thing);
        EXPECT_TRUE(thing.SetTEVSystemObject(kName, kClass, 3));
    }
    ExpectIdentity(thing, kIdentifier, kClass, 3);
}

void RefusesAssignment(Attempt& attempt) {
    Thing target;
    const Identified source;
    TEVSystemObject& base = target;
    Refuses<std::runtime_error>(attempt, "Invalid operation - assignment operation is not allowed.",
                                [&] { return base = source, 0; });
    ExpectNoIdentity(target);
}

const AllocatingFunctions identities{
    {"TEVSysUtil::GetTEVSystemObjectID(char const*, char const*, unsigned long long, char**)",
     "with a copy of the class name", MakesAnIdentifierAndACopy},
    {"TEVSysUtil::GetTEVSystemObjectID(char const*, char const*, unsigned long long, char**)", "",
     [](Attempt& attempt) {
         const Text made(attempt.Call(
             [] { return TEVSysUtil::GetTEVSystemObjectID(kName, kClass, 3, nullptr); }));
         EXPECT_EQ(made.str(), attempt.Succeeded(!made.IsNull()) ? kIdentifier : "(null)");
     }},
    {"TEVSystemObject::SetTEVSystemObject(char const*, char const*, unsigned long long)", "",
     SetsAnIdentity},
    {"TEVSystemObject::operator=(TEVSystemObject const&)", "", RefusesAssignment},
};

const IdleFunctions objects{
    {"TEVSystemObject::TEVSystemObject()", "",
     [](Attempt& attempt) {
         Finds(attempt, false, [] { return Thing().IsValidTEVSystemObject(); });
     }},
    {"TEVSystemObject::TEVSystemObject(TEVSystemObject const&)", "",
     [](Attempt& attempt) {
         const Identified thing;
         Finds(attempt, false, [&] { return Thing(thing).IsValidTEVSystemObject(); });
     }},
    {"TEVSystemObject::~TEVSystemObject()", "destructor",
     [](Attempt& attempt) {
         std::optional<Identified> thing(std::in_place);
         attempt.Call([&] { thing.reset(); });
         attempt.Succeeded(!thing);
     }},
    {"TEVSystemObject::CleanupTEVSystemObject()", "",
     [](Attempt& attempt) {
         Identified thing;
         attempt.Call([&] { thing.CleanupTEVSystemObject(); });
         attempt.Succeeded(!thing.IsValidTEVSystemObject());
     }},
    {"TEVSystemObject::SetTEVSystemObject(char const*, char const*, unsigned long long)",
     "a second time",
     [](Attempt& attempt) {
         Identified thing;
         Finds(attempt, false, [&] { return thing.SetTEVSystemObject(kName, kClass, 3); });
     }},
    {"TEVSystemObject::operator==(TEVSystemObject const&) const", "",
     [](Attempt& attempt) {
         const Identified one;
         const Identified other;
         Finds(attempt, false, [&] { return one == other; });
     }},
    {"TEVSystemObject::operator!=(TEVSystemObject const&) const", "unequal",
     [](Attempt& attempt) {
         const Identified one;
         const Identified other;
         Finds(attempt, true, [&] { return one != other; });
     }},
    {"TEVSystemObject::GetObjectCount() const", "",
     [](Attempt& attempt) {
         const Identified thing;
         Finds(attempt, std::size_t{3}, [&] { return thing.GetObjectCount(); });
     }},
    {"TEVSystemObject::GetTEVSystemObjectClassName() const", "",
     [](Attempt& attempt) {
         const Identified thing;
         Finds(attempt, std::string_view(kClass),
               [&] { return std::string_view(thing.GetTEVSystemObjectClassName()); });
     }},
    {"TEVSystemObject::GetTEVSystemObjectID() const", "",
     [](Attempt& attempt) {
         const Identified thing;
         Finds(attempt, std::string_view(kIdentifier),
               [&] { return std::string_view(thing.GetTEVSystemObjectID()); });
     }},
    {"TEVSystemObject::IsValidTEVSystemObject() const", "",
     [](Attempt& attempt) {
         const Identified thing;
         Finds(attempt, true, [&] { return thing.IsValidTEVSystemObject(); });
     }},
};

const IdleFunctions levels{
    {"XCode::FromIntToXCodeInstruction(int)", "",
     [](Attempt& attempt) {
         Finds(attempt, XCode::Maximum, [] { return XCode::FromIntToXCodeInstruction(2); });
     }},
    {"XCode::FromXCodeInstructionToInt(XCode::Instruction)", "",
     [](Attempt& attempt) {
         Finds(attempt, 2, [] { return XCode::FromXCodeInstructionToInt(XCode::Maximum); });
     }},
    {"XCode::GetXCodeInstruction(char const*)", "",
     [](Attempt& attempt) {
         Finds(attempt, XCode::Uninitialized,
               [] { return XCode::GetXCodeInstruction("                   Uninitialized  "); });
     }},
};

}  // namespace
