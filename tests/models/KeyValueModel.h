#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "TEVSystemLib/util/file/detail/KeyValueParser.h"

namespace tev::test {

// A slow model of the syntax: what happens to which byte in which state, row by row, and the four
// positions that a pair is made of.
class KeyValueModel {
 public:
    using Pair = std::pair<std::string, std::string>;
    using Pairs = std::vector<Pair>;
    // What is wrong with each line that is no comment and not empty, as a number, and what it
    // holds.
    using Lines = std::vector<std::pair<int, Pair>>;

    explicit KeyValueModel(bool blankSeparated) : blankSeparated_(blankSeparated) {}

    Lines RunLines(const std::string& text) {
        for (std::size_t here = 0; here < text.size(); ++here)
            state_ = Step(text, text[here], here);
        if (state_ == kKey) End(text, LineFault::NoSeparator);
        if (state_ == kAfterKey) End(text, LineFault::NoValue);
        if (state_ == kValue) End(text, LineFault::None);
        return lines_;
    }

    Pairs Run(const std::string& text) {
        Pairs pairs;
        for (const auto& [fault, pair] : RunLines(text))
            if (fault == static_cast<int>(LineFault::None)) pairs.push_back(pair);
        return pairs;
    }

 private:
    using LineFault = TAMO::TEV::System::Util::detail::LineFault;
    enum State { kLineStart, kComment, kKey, kAfterKey, kValue };

    State Step(const std::string& text, char byte, std::size_t here) {
        const bool lineFeed = byte == '\n';
        const bool innerBlank = byte == '\t' || byte == '\r' || byte == ' ';
        const bool lineBlank = innerBlank || lineFeed;
        if (state_ == kLineStart && byte == '#') return kComment;
        if (state_ == kLineStart && lineBlank) return kLineStart;
        if (state_ == kLineStart && byte == '=') return Add(LineFault::NoKey, {}), kComment;
        if (state_ == kLineStart) return keyStart_ = keyEnd_ = here, kKey;
        if (state_ == kComment && lineFeed) return Reset();
        if (state_ == kComment) return kComment;
        if (state_ == kKey && innerBlank && blankSeparated_) return kAfterKey;
        if (state_ == kKey && innerBlank && !blankSeparated_) return kKey;
        if (state_ == kKey && byte == '=' && !blankSeparated_) return kAfterKey;
        if (state_ == kKey && lineFeed) return End(text, LineFault::NoSeparator);
        if (state_ == kKey) return keyEnd_ = here, kKey;
        if (state_ == kAfterKey && innerBlank) return kAfterKey;
        if (state_ == kAfterKey && lineFeed) return End(text, LineFault::NoValue);
        if (state_ == kAfterKey) return valueStart_ = valueEnd_ = here, kValue;
        if (state_ == kValue && (lineFeed || byte == '\0')) return End(text, LineFault::None);
        if (state_ == kValue && innerBlank) return kValue;
        return valueEnd_ = here, kValue;
    }

    void Add(LineFault fault, Pair pair) {
        lines_.emplace_back(static_cast<int>(fault), std::move(pair));
    }

    State End(const std::string& text, LineFault fault) {
        Pair pair{text.substr(keyStart_, keyEnd_ - keyStart_ + 1), ""};
        if (fault == LineFault::None)
            pair.second = text.substr(valueStart_, valueEnd_ - valueStart_ + 1);
        Add(fault, std::move(pair));
        return Reset();
    }

    State Reset() {
        keyStart_ = keyEnd_ = valueStart_ = valueEnd_ = 0;
        return kLineStart;
    }

    bool blankSeparated_;
    State state_ = kLineStart;
    std::size_t keyStart_ = 0;
    std::size_t keyEnd_ = 0;
    std::size_t valueStart_ = 0;
    std::size_t valueEnd_ = 0;
    Lines lines_;
};

}  // namespace tev::test
