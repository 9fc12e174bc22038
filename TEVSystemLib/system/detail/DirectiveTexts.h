#pragma once

#include "TEVSystemLib/system/detail/DirectivePlan.h"

// Why a directive changes nothing, for people.
namespace TAMO::TEV::System::detail {

constexpr char kAlreadySo[] = "it is so already";
constexpr char kUnreadable[] = "it is set, but cannot be read back and so counts as not set";
constexpr char kSystemRefuses[] = "Windows refuses the change";
constexpr char kNotSet[] = "the variable is not set";

constexpr const char* ReasonOf(DirectiveFlaw flaw) {
    switch (flaw) {
        case DirectiveFlaw::None:
            break;
        case DirectiveFlaw::UnknownPrefix:
            return "no directive begins like this key";
        case DirectiveFlaw::NoVariable:
            return "it names no variable";
        case DirectiveFlaw::NoBar:
            return "there is no \"|\" between name and value";
        case DirectiveFlaw::OnePiece:
            return "nothing stands on one side of the \"|\"";
        case DirectiveFlaw::ManyPieces:
            return "it has more than two pieces around \"|\"";
        case DirectiveFlaw::BlankPiece:
            return "its name or its value is blank";
        case DirectiveFlaw::NoFolder:
            return "there is no such folder";
    }
    return "";
}

}  // namespace TAMO::TEV::System::detail
