#include "reference/plain_wildcard.hpp"

#include "platform/case_folding.hpp"
#include "reference/plain_text.hpp"

#include <algorithm>
#include <cstddef>

namespace tarnwick::reference {
namespace {

// One question: does the rest of the name, from `n` on, match the rest of the pattern, from `p` on?
class Question {
  public:
    Question(std::string name, std::string pattern, bool dotAtEnd)
        : name_(std::move(name)),
          pattern_(std::move(pattern)),
          dotAtEnd_(dotAtEnd),
          lastDot_(std::min(name_.rfind('.'), name_.size())) {}

    [[nodiscard]] bool matches(std::size_t n, std::size_t p) const {
        if (p == pattern_.size()) {
            return n == name_.size();
        }
        const bool atEnd = n == name_.size();
        const char wanted = pattern_[p];
        const bool last = p + 1 == pattern_.size();
        const char behind = last ? '\0' : pattern_[p + 1];
        if (wanted == '*') {
            const bool keepsDot = behind == '.' || (last && dotAtEnd_);
            return matches(n, p + 1) ||
                   (!atEnd && (!keepsDot || n != lastDot_) && matches(n + 1, p));
        }
        if (wanted == '?') {
            return ((atEnd || name_[n] == '.') && matches(n, p + 1)) ||
                   (!atEnd && name_[n] != '.' && matches(n + 1, p + 1));
        }
        if (wanted == '.' && (behind == '?' || behind == '*')) {
            return (atEnd && matches(n, p + 1)) ||
                   (!atEnd && name_[n] == '.' && matches(n + 1, p + 1));
        }
        return !atEnd && name_[n] == wanted && matches(n + 1, p + 1);
    }

  private:
    std::string name_;
    std::string pattern_;
    bool dotAtEnd_;
    std::size_t lastDot_;
};

} // namespace

bool matchesWildcard(const std::string& name, const std::string& pattern) {
    std::string core = upperCase(pattern);
    if (core == "*.*") {
        return true;
    }
    const bool dotAtEnd = core.ends_with('.');
    while (core.ends_with('.') || core.ends_with(' ')) {
        core.pop_back();
    }
    return Question(upperCase(name), core, dotAtEnd).matches(0, 0);
}

bool matchesAnyWildcard(const std::string& name, const std::string& patterns) {
    bool any = false;
    bool matches = false;
    for (const std::string& part : split(patterns, ";")) {
        const std::string pattern = trimmed(part);
        any = any || !pattern.empty();
        matches = matches || (!pattern.empty() && matchesWildcard(name, pattern));
    }
    return matches || !any;
}

} // namespace tarnwick::reference
