#include "platform/wildcard.hpp"

#include "platform/case_folding.hpp"
#include "platform/characters.hpp"

#include <algorithm>
#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <iterator>
#include <utility>

namespace tarnwick {
bool matchesWildcard(std::string_view name, std::string_view pattern) {
    if (pattern == "*.*") {
        return true;
    }
    // The last "*" met, and where in the name the part that it stands for may end: on a mismatch
    // it takes one character more. No pattern costs more than its length times the name's.
    std::size_t n = 0;
    std::size_t p = 0;
    std::size_t star = std::string_view::npos;
    std::size_t starEnd = 0;
    while (n < name.size()) {
        if (p < pattern.size() && pattern[p] == '*') {
            star = p++;
            starEnd = n;
        } else if (p < pattern.size() &&
                   (pattern[p] == '?' || upperCase(pattern[p]) == upperCase(name[n]))) {
            ++p;
            ++n;
        } else if (star != std::string_view::npos) {
            p = star + 1;
            n = ++starEnd;
        } else {
            return false;
        }
    }
    return pattern.find_first_not_of('*', p) == std::string_view::npos;
}

bool matchesAnyWildcard(std::string_view name, std::string_view patterns) {
    bool anyPattern = false;
    while (!patterns.empty()) {
        const auto end = std::min(patterns.find(';'), patterns.size());
        const auto pattern = trim(patterns.substr(0, end));
        patterns.remove_prefix(std::min(end + 1, patterns.size()));
        if (pattern.empty()) {
            continue;
        }
        anyPattern = true;
        if (matchesWildcard(name, pattern)) {
            return true;
        }
    }
    return !anyPattern;
}

bool nameLess(std::string_view left, std::string_view right) {
    const auto length = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < length; ++i) {
        const auto l = static_cast<unsigned char>(upperCase(left[i]));
        const auto r = static_cast<unsigned char>(upperCase(right[i]));
        if (l != r) {
            return l < r;
        }
    }
    return left.size() != right.size() ? left.size() < right.size() : left < right;
}

namespace {

// The beginning of an upper-cased name as a number, in the order of the names.
struct SortPrefix {
    std::array<std::uint64_t, 2> words{};

    auto operator<=>(const SortPrefix&) const = default;
};

SortPrefix sortPrefix(std::string_view upper) {
    SortPrefix prefix;
    std::size_t place = 0;
    for (std::uint64_t& word : prefix.words) {
        for (std::size_t byte = 0; byte < sizeof word; ++byte, ++place) {
            const unsigned char next =
                place < upper.size() ? static_cast<unsigned char>(upper[place]) : 0;
            word = word << 8U | next;
        }
    }
    return prefix;
}

} // namespace

void sortNames(std::vector<std::string>& names) {
    // Every name is upper-cased once instead of at each comparison, all of them in one block; and
    // most comparisons are settled by the first characters, which stand in the key itself: a
    // hundred thousand names would not fit into the processor's cache.
    std::size_t length = 0;
    for (const auto& name : names) {
        length += name.size();
    }
    std::string block;
    block.reserve(length);
    std::vector<std::string_view> upper; // of block
    upper.reserve(names.size());
    struct Key {
        SortPrefix prefix;
        std::size_t index;
    };
    std::vector<Key> keys;
    keys.reserve(names.size());
    for (const auto& name : names) {
        const auto start = block.size();
        std::ranges::transform(name, std::back_inserter(block),
                               [](char c) { return upperCase(c); });
        upper.emplace_back(block.data() + start, name.size());
        keys.push_back({sortPrefix(upper.back()), keys.size()});
    }
    std::ranges::sort(keys, [&](const Key& left, const Key& right) {
        if (left.prefix != right.prefix) {
            return left.prefix < right.prefix;
        }
        const auto order = upper[left.index].compare(upper[right.index]);
        return order != 0 ? order < 0 : names[left.index] < names[right.index];
    });
    std::vector<std::string> sorted;
    sorted.reserve(names.size());
    for (const auto& key : keys) {
        sorted.push_back(std::move(names[key.index]));
    }
    names = std::move(sorted);
}

} // namespace tarnwick
