#pragma once

#include <algorithm>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "models/TextModel.h"

namespace tev::test {

// A ";" list as the elements that it holds, and the edits of it.
class ListModel {
 public:
    explicit ListModel(std::string_view list) {
        for (const std::string& piece : PiecesOf(";", list)) {
            const std::string element = TrimmedIfSpaced(piece);
            if (!element.empty()) elements_.push_back(element);
        }
    }

    std::string Text() const {
        std::string list;
        for (const std::string& element : elements_) list += ';' + element;
        return list.empty() ? list : list.substr(1);
    }

    // Nothing when the element is there already.
    std::optional<std::string> With(const std::string& element, bool atFront) const {
        if (PlaceOf(element) != elements_.end()) return std::nullopt;
        const std::string list = Text();
        if (list.empty()) return element;
        return atFront ? element + ';' + list : list + ';' + element;
    }

    std::string Without(const std::string& element) const {
        ListModel fewer(*this);
        const auto place = fewer.PlaceOf(element);
        if (place != fewer.elements_.end()) fewer.elements_.erase(place);
        return fewer.Text();
    }

 private:
    using Elements = std::vector<std::string>;

    Elements::const_iterator PlaceOf(const std::string& element) const {
        return std::find_if(
            elements_.begin(), elements_.end(),
            [&element](const std::string& other) { return Lowered(other) == Lowered(element); });
    }

    Elements elements_;
};

}  // namespace tev::test
