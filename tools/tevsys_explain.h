#pragma once

#include <ostream>
#include <string>
#include <vector>

#include "tools/tevsys_redact.h"

namespace tevsys {

// "system file": a layer as people and programs read it.
const char* LayerName(Diagnostics::Layer layer);

// "FILE:LINE", or nothing for what stands in no file.
std::string PlaceText(const Diagnostics::Place& place);

void ShowExplanation(std::ostream& out, const Diagnostics::Explanation& explanation,
                     const Redactor& redactor);
// An object for one key, an array of them for all.
void WriteExplanation(std::ostream& out, const Diagnostics::Explanation& explanation,
                      const Redactor& redactor);
void WriteExplanations(std::ostream& out, const std::vector<Diagnostics::Explanation>& all,
                       const Redactor& redactor);

}  // namespace tevsys
