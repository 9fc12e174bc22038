#pragma once

#include <optional>
#include <string>

#include "TEVSystemLib/system/detail/LoaderFolders.h"
#include "TEVSystemLib/system/detail/ModuleTree.h"

// What the loader of this process goes by. Texts are UTF-8.
namespace TAMO::TEV::System::detail {

LoaderFacts LoaderFactsOfThisProcess();

// Where the loader finds a module with these folders.
std::optional<ModulePlace> FindModule(const std::string& name, const SearchedFolders& folders,
                                      const LoaderFacts& facts);

// The whole content of a file; nothing when it cannot be read.
std::optional<std::string> ReadModuleFile(const std::string& file);

// The system's text for a code, without a line end.
std::string SystemText(unsigned long code);

}  // namespace TAMO::TEV::System::detail
