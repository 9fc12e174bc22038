#pragma once

#include <locale>
#include <string>
#include <utility>

namespace tev::test {

// The global C++ locale with another facet, until the end of the scope. The library sees it: both
// share one C++ runtime.
class GlobalLocale {
 public:
    template <typename Facet>
    explicit GlobalLocale(Facet* facet)
        : before_(std::locale::global(std::locale(std::locale(), facet))) {}
    ~GlobalLocale() { std::locale::global(before_); }
    GlobalLocale(const GlobalLocale&) = delete;
    GlobalLocale& operator=(const GlobalLocale&) = delete;

 private:
    std::locale before_;
};

// Numbers with another decimal point or with their digits in groups.
class Punctuation : public std::numpunct<char> {
 public:
    explicit Punctuation(char point, std::string grouping = "", char separator = '\'')
        : point_(point), grouping_(std::move(grouping)), separator_(separator) {}

 private:
    char do_decimal_point() const override { return point_; }
    char do_thousands_sep() const override { return separator_; }
    std::string do_grouping() const override { return grouping_; }

    char point_;
    std::string grouping_;
    char separator_;
};

}  // namespace tev::test
