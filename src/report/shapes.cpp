#include "report/shapes.hpp"

#include "report/ascii.hpp"
#include "report/digits.hpp"
#include "report/escaping.hpp"
#include "report/own_name.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <optional>
#include <utility>

namespace tarnwick {
namespace {

constexpr std::string_view something = "\u2026";
constexpr std::string_view cutEnd = "...";

constexpr bool isBlank(char character) noexcept {
    return character == ' ' || (character >= '\t' && character <= '\r');
}
constexpr bool isAscii(char character) noexcept {
    return static_cast<unsigned char>(character) < 0x80;
}
constexpr bool isSign(char character) noexcept {
    return character == '-' || character == '+';
}

struct Quotation {
    std::string_view opens;
    std::array<std::string_view, 3> closes;
    bool mayBeApostrophe = false; // then it is none between letters
};
constexpr auto quotations = std::to_array<Quotation>({
    {.opens = "\"", .closes = {"\"", "\"", "\""}},
    {.opens = "\u201C", .closes = {"\u201D", "\u201C", "\u201D"}},
    {.opens = "\u201E", .closes = {"\u201D", "\u201C", "\u201D"}},
    {.opens = "\u00AB", .closes = {"\u00BB", "\u00BB", "\u00BB"}},
    {.opens = "\u00BB", .closes = {"\u00AB", "\u00AB", "\u00AB"}},
    {.opens = "\u2039", .closes = {"\u203A", "\u203A", "\u203A"}},
    {.opens = "'", .closes = {"'", "\u2019", "'"}, .mayBeApostrophe = true},
    {.opens = "\u2018", .closes = {"'", "\u2019", "'"}, .mayBeApostrophe = true},
    {.opens = "\u201A", .closes = {"'", "\u2019", "'"}, .mayBeApostrophe = true},
    {.opens = "`", .closes = {"'", "\u2019", "`"}, .mayBeApostrophe = true},
});

// Most characters do not: they are seen at a glance.
constexpr bool mayQuote(char first) noexcept {
    return !isAscii(first) || first == '"' || first == '\'' || first == '`';
}

bool closes(std::string_view character, const Quotation& quotation) noexcept {
    return std::ranges::find(quotation.closes, character) != quotation.closes.end();
}

// One that opens or closes, and is no apostrophe.
bool isClearMark(std::string_view character) noexcept {
    if (isAscii(character.front())) {
        return character.front() == '"';
    }
    return std::ranges::any_of(quotations, [&](const Quotation& quotation) {
        return !quotation.mayBeApostrophe &&
               (quotation.opens == character || closes(character, quotation));
    });
}

bool isLetter(std::string_view character) noexcept {
    return isAscii(character.front()) ? isAsciiLetter(character.front())
                                      : character != something && !isClearMark(character) &&
                                            character != "\u2018" && character != "\u2019" &&
                                            character != "\u201A" && lengthOfDigit(character) == 0;
}

bool isFileName(std::string_view word) noexcept {
    const auto dot = word.rfind('.');
    return dot != std::string_view::npos && dot != 0 && isExtension(word.substr(dot + 1));
}

bool isPath(std::string_view word) noexcept {
    if (word.size() < 2) {
        return false;
    }
    if (word.contains('\\') || word.contains("://")) {
        return true;
    }
    const auto slash = word.find('/');
    if (slash == std::string_view::npos) {
        return false;
    }
    const auto first = word.substr(0, slash);
    return first.empty() || first == "." || first == ".." || first == "~" || first.ends_with(':') ||
           isFileName(word.substr(word.rfind('/') + 1));
}

std::string_view trimmed(std::string_view text) noexcept {
    while (!text.empty() && isBlank(text.front())) {
        text.remove_prefix(1);
    }
    while (!text.empty() && isBlank(text.back())) {
        text.remove_suffix(1);
    }
    return text;
}

class Masker {
  public:
    explicit Masker(std::string_view message) : text_(trimmed(message)) {}

    std::string shape() {
        shape_.reserve(text_.size());
        while (at_ < text_.size()) {
            if (isBlank(text_[at_])) {
                takeBlanks();
            } else if (!takeQuotation()) {
                takeWord();
            }
        }
        return std::move(shape_);
    }

  private:
    [[nodiscard]] char byteAt(std::size_t place) const noexcept {
        return place < text_.size() ? text_[place] : '\0';
    }
    [[nodiscard]] std::string_view characterAt(std::size_t place) const noexcept {
        return text_.substr(place, utf8Page().lengthOfFirst(text_.substr(place)));
    }
    [[nodiscard]] bool isLetterAt(std::size_t place) const noexcept {
        return place < text_.size() && isLetter(characterAt(place));
    }

    void takeBlanks() {
        while (isBlank(byteAt(at_))) {
            ++at_;
        }
        shape_ += ' ';
    }

    bool takeQuotation() {
        if (!mayQuote(text_[at_])) {
            return false;
        }
        const auto opening = characterAt(at_);
        for (const Quotation& quotation : quotations) {
            if (quotation.opens != opening) {
                continue;
            }
            const std::size_t inside = at_ + opening.size();
            if (const auto end = endOf(quotation, inside)) {
                const auto closing = characterAt(*end);
                shape_.append(opening).append(something).append(closing);
                at_ = *end + closing.size();
                return true;
            }
            if (opening == "\"" && text_.ends_with(cutEnd)) {
                shape_.append(opening).append(something).append(cutEnd);
                at_ = text_.size();
                return true;
            }
        }
        return false;
    }

    // Of a quotation that is open from `place` on.
    [[nodiscard]] std::optional<std::size_t> endOf(const Quotation& quotation,
                                                   std::size_t place) const {
        while (place < text_.size()) {
            const auto character = characterAt(place);
            if (mayQuote(character.front()) && closes(character, quotation) &&
                !(quotation.mayBeApostrophe && isLetterAt(place + character.size()))) {
                return place;
            }
            place += character.size();
        }
        return std::nullopt;
    }

    // What is no word is one character, and stays.
    void takeWord() {
        std::size_t end = at_ + characterAt(at_).size();
        if (!endsWord(at_, {})) {
            auto before = characterAt(at_);
            while (end < text_.size() && !endsWord(end, before)) {
                before = characterAt(end);
                end += before.size();
            }
        }
        const auto word = text_.substr(at_, end - at_);
        const auto core = word.substr(0, word.find_last_not_of(".!?") + 1);
        if (isPath(core) || isFileName(core)) {
            shape_.append(something).append(word.substr(core.size()));
        } else {
            maskNumbers(word);
        }
        at_ = end;
    }

    // A mark that quotes nothing is a part of its word. `before` is its character in front of that
    // place.
    [[nodiscard]] bool endsWord(std::size_t place, std::string_view before) const {
        constexpr std::string_view always = "()[]{}<>|;=";
        const char character = text_[place];
        if (character == ',') {
            return lengthOfDigit(before) == 0 || lengthOfDigit(text_.substr(place + 1)) == 0;
        }
        if (character == ':') {
            return !isOfDrive(place) && !text_.substr(place).starts_with("://");
        }
        if (isBlank(character) || always.contains(character) || isClearMark(characterAt(place))) {
            return true;
        }
        return place > at_ && mayQuote(character) && !isLetter(before) && quotesAt(place);
    }

    [[nodiscard]] bool quotesAt(std::size_t place) const {
        const auto character = characterAt(place);
        return std::ranges::any_of(quotations, [&](const Quotation& quotation) {
            return quotation.mayBeApostrophe && quotation.opens == character &&
                   endOf(quotation, place + character.size());
        });
    }

    // "C:\", at the beginning of a word.
    [[nodiscard]] bool isOfDrive(std::size_t place) const {
        const char next = byteAt(place + 1);
        return place == at_ + 1 && isAsciiLetter(text_[at_]) && (next == '\\' || next == '/');
    }

    void maskNumbers(std::string_view word) {
        for (std::size_t place = 0; place < word.size();) {
            const bool isSigned = isSign(word[place]) &&
                                  lengthOfDigit(word.substr(place + 1)) > 0 &&
                                  beginsNumber(word, place);
            const std::size_t end = endOfNumber(word, place + (isSigned ? 1 : 0));
            if (end == place) {
                shape_ += word[place++];
            } else {
                shape_ += '#';
                place = end;
            }
        }
    }

    // Of the digits that stand there, with single dots and commas between them; the place itself
    // where there are none.
    static std::size_t endOfNumber(std::string_view word, std::size_t place) {
        while (const std::size_t digit = lengthOfDigit(word.substr(place))) {
            place += digit;
            const auto rest = word.substr(place);
            if ((rest.starts_with('.') || rest.starts_with(',')) &&
                lengthOfDigit(rest.substr(1)) > 0) {
                ++place;
            }
        }
        return place;
    }

    static bool beginsNumber(std::string_view word, std::size_t sign) {
        if (sign == 0) {
            return true;
        }
        const char before = word[sign - 1];
        return lengthOfDigit({&before, 1}) == 0 && !isAsciiLetter(before) && !isSign(before) &&
               before != '#' && isAscii(before);
    }

    std::string_view text_;
    std::size_t at_ = 0;
    std::string shape_;
};

} // namespace

std::string shapeOf(std::string_view message, std::string_view record) {
    return Masker(withoutOwnName(message, record)).shape();
}

bool isCommon(std::size_t records, std::size_t known) noexcept {
    return records >= leastCommon &&
           static_cast<double>(records) >= commonPart * static_cast<double>(known);
}

} // namespace tarnwick
