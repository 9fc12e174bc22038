#pragma once

#include <TEVSystemLib/system/TEVSystemDiagnostics.h>

#include <set>
#include <string>
#include <vector>

namespace tevsys {

using Diagnostics = TAMO::TEV::System::TEVSystemDiagnostics;

// Makes texts fit to be shown: UTF-8, and without the values of the properties and variables whose
// names match a pattern, wherever they occur.
class Redactor {
 public:
    // Patterns hold "*" for any text and "?" for any character; case does not count.
    explicit Redactor(const std::vector<std::string>& patterns);
    // Hides what a properties file has under such names as well.
    void AlsoHideThoseOf(const std::string& file);

    bool Hides(const std::string& name) const;
    // A value that belongs to a name.
    std::string Value(const std::string& name, const std::string& value) const;
    // A message that may show a value of that name: in quotes, or a reference at its beginning.
    std::string Message(const std::string& name, const std::string& value,
                        const std::string& message) const;

 private:
    // A value that belongs to no name that is hidden.
    std::string Text(const std::string& text) const;
    void Hide(const std::string& value);
    void HideConfigured();
    void HideVariables();

    std::vector<std::wstring> patterns_;
    // Long ones first, so that none is left in part.
    std::set<std::string, bool (*)(const std::string&, const std::string&)> hidden_;
};

}  // namespace tevsys
