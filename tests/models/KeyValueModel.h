#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

namespace tev::test {

// A slow model of the syntax: what happens to which byte in which state, row by row, and the four
// positions that a pair is made of.
class KeyValueModel {
 public:
    using Pairs = std::vector<std::pair<std::string, std::string>>;

    explicit KeyValueModel(bool blankSeparated) : blankSeparated_(blankSeparated) {}

    Pairs Run(const std::string& text) {
        const std::string terminated = text + '\0';
        for (std::size_t here = 0; here < terminated.size(); ++here)
            state_ = Step(terminated, terminated[here], here);
        return pairs_;
    }

 private:
    enum State { kLineStart, kComment, kKey, kAfterKey, kValue };

    State Step(const std::string& text, char byte, std::size_t here) {
        const bool lineFeed = byte == '\n';
        const bool innerBlank = byte == '\t' || byte == '\r' || byte == ' ';
        const bool lineBlank = innerBlank || lineFeed;
        if (state_ == kLineStart && byte == '#') return kComment;
        if (state_ == kLineStart && lineBlank) return kLineStart;
        if (state_ == kLineStart && byte == '=') return kComment;
        if (state_ == kLineStart) return keyStart_ = keyEnd_ = here, kKey;
        if (state_ == kComment && lineFeed) return Reset();
        if (state_ == kComment) return kComment;
        if (state_ == kKey && innerBlank && blankSeparated_) return kAfterKey;
        if (state_ == kKey && innerBlank && !blankSeparated_) return kKey;
        if (state_ == kKey && byte == '=' && !blankSeparated_) return kAfterKey;
        if (state_ == kKey && lineFeed) return Reset();
        if (state_ == kKey) return keyEnd_ = here, kKey;
        if (state_ == kAfterKey && innerBlank) return kAfterKey;
        if (state_ == kAfterKey && lineFeed) return Reset();
        if (state_ == kAfterKey) return valueStart_ = valueEnd_ = here, kValue;
        if (state_ == kValue && (lineFeed || byte == '\0')) {
            pairs_.emplace_back(text.substr(keyStart_, keyEnd_ - keyStart_ + 1),
                                text.substr(valueStart_, valueEnd_ - valueStart_ + 1));
            return Reset();
        }
        if (state_ == kValue && innerBlank) return kValue;
        return valueEnd_ = here, kValue;
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
    Pairs pairs_;
};

}  // namespace tev::test
