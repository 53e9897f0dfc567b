// Text of any bytes. In code page 1252 its upper case, its comparison and its form in the
// interpreter's code page are those of this machine's own tables. Behind a byte that chooses a code
// page, two lines of it: its characters are what a plain walk finds, and case is ignored as in the
// upper case.

#include "fields.hpp"
#include "platform/case_folding.hpp"
#include "platform/posix/unicode_letters.hpp"
#include "reference/plain_characters.hpp"
#include "reference/system_characters.hpp"
#include "require.hpp"
#include "support/code_page_437.hpp"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace tarnwick {
namespace {

void tryWestern(std::string_view text) {
    require(upperCase(text) == reference::upperCase(text), "the upper case is the system's");
    require(equalIgnoringCase(text, reference::upperCase(text)), "case does not matter");
    require(inCodePage437(text) == reference::inCodePage437(text),
            "the interpreter's form is the system's");
}

struct Choice {
    unsigned number = CodePage::western;
    CodePage page{CodePage::western};
};

const Choice& chosenBy(char byte) {
    static const std::array<Choice, 8> choices{{
        {},
        {.number = 437, .page = CodePage(437)},
        {.number = 932, .page = CodePage(932)},
        {.number = 936, .page = CodePage(936)},
        {.number = 949, .page = CodePage(949)},
        {.number = 950, .page = CodePage(950)},
        {.number = CodePage::utf8, .page = CodePage(CodePage::utf8)},
        {.number = CodePage::utf8, .page = CodePage(capitalOf)}, // the letters of all scripts
    }};
    return choices.at(static_cast<unsigned char>(byte) % choices.size());
}

void tryCharacters(std::string_view text, const Choice& choice) {
    const auto characters = reference::charactersOf(text, choice.number);
    std::string_view rest = text;
    for (const std::string& character : characters) {
        require(choice.page.lengthOfFirst(rest) == character.size(), "characters are as long");
        rest.remove_prefix(character.size());
    }
    for (const char* const wanted : {"\\", "\\/", "|<A@"}) {
        require(choice.page.findFirstOf(text, wanted) == reference::firstOf(characters, wanted),
                "the first one is found");
        require(choice.page.findLastOf(text, wanted) == reference::lastOf(characters, wanted),
                "the last one is found");
    }
    if (choice.page.hasTrailBytes()) {
        require(upperCase(text, choice.page) == reference::asciiCapitals(characters),
                "only letters of ASCII have another case");
    }
}

void tryCase(const std::string& left, const std::string& right, const CodePage& page) {
    const std::string upper = upperCase(left, page);
    require(upperCase(upper, page) == upper, "the upper case is upper case already");
    require(equalIgnoringCase(left, upper, page), "case does not matter in any code page");
    require(equalIgnoringCase(left, right, page) == (upper == upperCase(right, page)),
            "texts are equal exactly when their upper cases are");
}

void tryBytes(std::string_view bytes) {
    tryWestern(bytes);
    if (!bytes.empty()) {
        const Choice& choice = chosenBy(bytes.front());
        tryCharacters(bytes.substr(1), choice);
        Fields lines(bytes.substr(1));
        const std::string left = lines.next();
        tryCase(left, lines.next(), choice.page);
    }
}

} // namespace
} // namespace tarnwick

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    tarnwick::tryBytes({reinterpret_cast<const char*>(data), size});
    return 0;
}
