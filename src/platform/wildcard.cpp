#include "platform/wildcard.hpp"

#include "platform/case_folding.hpp"
#include "platform/characters.hpp"

#include <algorithm>
#include <array>
#include <compare>
#include <cstddef>
#include <cstdint>
#include <utility>

namespace tarnwick {
namespace {

// The elements of a pattern, as the system reads them from the text that a user wrote.
enum class Element : std::uint8_t {
    Character,     // itself
    AnyCharacters, // also none
    UpToLastDot,   // any characters, also none, but not the last dot of the name
    OneCharacter,  // no dot; also nothing, before a dot and at the end
    DotOrEnd,
};

struct Part {
    Element element = Element::Character;
    std::uint32_t character = 0; // as CodePage::takeUpperCased gives it
};

// Takes it from the front of `pattern`.
Part takePart(std::string_view& pattern, const CodePage& codePage) {
    const std::uint32_t character = codePage.takeUpperCased(pattern);
    const char next = pattern.empty() ? '\0' : pattern.front();
    switch (character) {
    case '?':
        return {Element::OneCharacter};
    case '*':
        return {next == '.' ? Element::UpToLastDot : Element::AnyCharacters};
    case '.':
        return next == '?' || next == '*' ? Part{Element::DotOrEnd} : Part{Element::Character, '.'};
    default:
        return {Element::Character, character};
    }
}

std::vector<Part> partsOf(std::string_view pattern, const CodePage& codePage) {
    if (pattern == "*.*") {
        return {{Element::AnyCharacters}};
    }
    const bool endsInDot = pattern.ends_with('.');
    pattern = pattern.substr(0, pattern.find_last_not_of(". ") + 1);
    std::vector<Part> parts;
    parts.reserve(pattern.size());
    while (!pattern.empty()) {
        parts.push_back(takePart(pattern, codePage));
    }
    if (endsInDot && !parts.empty() && parts.back().element == Element::AnyCharacters) {
        parts.back().element = Element::UpToLastDot;
    }
    return parts;
}

// Which places of the pattern can be reached with the beginning of the name that was read so far.
// However many stars there are, each character of the name goes through the pattern once.
class Places {
  public:
    Places(const std::vector<Part>& parts, std::size_t lastDot)
        : parts_(parts), lastDot_(lastDot), reached_(parts.size() + 1), next_(parts.size() + 1) {
        reached_[0] = 1;
    }

    // Reads the character that begins at that index.
    void read(std::size_t index, std::uint32_t character) {
        std::ranges::fill(next_, 0);
        for (std::size_t place = 0; place < parts_.size(); ++place) {
            if (reached_[place] == 0) {
                continue;
            }
            if (mayBeNothing(parts_[place], character)) {
                reached_[place + 1] = 1;
            }
            if (stays(parts_[place], index)) {
                next_[place] = 1;
            }
            if (takes(parts_[place], character)) {
                next_[place + 1] = 1;
            }
        }
        reached_.swap(next_);
    }

    // At the end of the name.
    [[nodiscard]] bool reachEnd() const {
        for (std::size_t place = parts_.size() + 1; place-- > 0;) {
            if (reached_[place] != 0) {
                return true;
            }
            if (place > 0 && parts_[place - 1].element == Element::Character) {
                return false;
            }
        }
        return false;
    }

  private:
    static bool mayBeNothing(const Part& part, std::uint32_t before) {
        return part.element == Element::AnyCharacters || part.element == Element::UpToLastDot ||
               (part.element == Element::OneCharacter && before == '.');
    }
    [[nodiscard]] bool stays(const Part& part, std::size_t index) const {
        return part.element == Element::AnyCharacters ||
               (part.element == Element::UpToLastDot && index != lastDot_);
    }
    static bool takes(const Part& part, std::uint32_t character) {
        switch (part.element) {
        case Element::Character:
            return part.character == character;
        case Element::OneCharacter:
            return character != '.';
        case Element::DotOrEnd:
            return character == '.';
        default:
            return false;
        }
    }

    const std::vector<Part>& parts_;
    std::size_t lastDot_;
    std::vector<char> reached_; // one more place than there are parts
    std::vector<char> next_;
};

} // namespace

bool matchesWildcard(std::string_view name, std::string_view pattern, const CodePage& codePage) {
    const auto parts = partsOf(pattern, codePage);
    Places places(parts, name.rfind('.'));
    for (std::string_view rest = name; !rest.empty();) {
        const std::size_t index = name.size() - rest.size();
        places.read(index, codePage.takeUpperCased(rest));
    }
    return places.reachEnd();
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

namespace {

bool beginsWithAscii(std::string_view text) {
    return isAscii(text.substr(0, 1)) && !text.empty();
}

// Where a letter may be of several bytes.
bool lessByCharacters(std::string_view left, std::string_view right, const CodePage& codePage) {
    auto leftRest = left;
    auto rightRest = right;
    while (beginsWithAscii(leftRest) && beginsWithAscii(rightRest)) {
        const auto l = codePage.takeUpperCased(leftRest);
        const auto r = codePage.takeUpperCased(rightRest);
        if (l != r) {
            return l < r;
        }
    }
    const auto order = upperCase(leftRest, codePage).compare(upperCase(rightRest, codePage));
    return order != 0 ? order < 0 : left < right;
}

} // namespace

bool NameLess::operator()(std::string_view left, std::string_view right,
                          const CodePage& codePage) const {
    if (!codePage.foldsByBytes()) {
        return lessByCharacters(left, right, codePage);
    }
    const auto length = std::min(left.size(), right.size());
    for (std::size_t i = 0; i < length; ++i) {
        const auto l = static_cast<unsigned char>(codePage.upperCase(left[i]));
        const auto r = static_cast<unsigned char>(codePage.upperCase(right[i]));
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

std::vector<std::size_t> orderOfNames(std::span<const std::string_view> names,
                                      const CodePage& codePage) {
    // Every name is upper-cased once instead of at each comparison, all of them in one block; and
    // most comparisons are settled by the first characters, which stand in the key itself: a
    // hundred thousand names would not fit into the processor's cache.
    std::string block;
    std::vector<std::size_t> starts{0}; // of each name in the block, and its end
    starts.reserve(names.size() + 1);
    for (const auto name : names) {
        block.append(upperCase(name, codePage));
        starts.push_back(block.size());
    }
    const auto upper = [&](std::size_t index) {
        return std::string_view(block).substr(starts[index], starts[index + 1] - starts[index]);
    };
    struct Key {
        SortPrefix prefix;
        std::size_t index;
    };
    std::vector<Key> keys;
    keys.reserve(names.size());
    while (keys.size() < names.size()) {
        keys.push_back({sortPrefix(upper(keys.size())), keys.size()});
    }
    std::ranges::sort(keys, [&](const Key& left, const Key& right) {
        if (left.prefix != right.prefix) {
            return left.prefix < right.prefix;
        }
        const auto order = upper(left.index).compare(upper(right.index));
        return order != 0 ? order < 0 : names[left.index] < names[right.index];
    });
    std::vector<std::size_t> order;
    order.reserve(names.size());
    std::ranges::transform(keys, std::back_inserter(order), &Key::index);
    return order;
}

} // namespace tarnwick
