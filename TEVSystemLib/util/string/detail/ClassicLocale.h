#pragma once

#include <locale>

namespace TAMO::TEV::System::Util::detail {

// With it as the global C++ locale, streams write numbers as to_chars does and read them as digits,
// whatever stands between them.
inline bool IsClassicLocale() { return std::locale() == std::locale::classic(); }

}  // namespace TAMO::TEV::System::Util::detail
