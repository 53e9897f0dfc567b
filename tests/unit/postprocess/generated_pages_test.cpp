// Pages made at random, rewritten by the program and by a second, simple program of the same rule,
// which goes through each page line by line and each line letter by letter.

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "unit/postprocess/links_world.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <array>
#include <random>
#include <vector>

namespace tarnwick {
namespace {

struct PlainOutput {
    std::string path;
    std::string name;
};

std::string plainRelative(const std::string& from, const std::string& to) {
    std::size_t common = 0; // behind the last "\" up to which both are alike
    for (std::size_t i = 0; i < from.size() && i < to.size(); ++i) {
        if (systemCodePage().upperCase(from[i]) != systemCodePage().upperCase(to[i])) {
            break;
        }
        if (from[i] == '\\') {
            common = i + 1;
        }
    }
    std::string result;
    for (std::size_t i = common; i < from.size(); ++i) {
        result += from[i] == '\\' ? "../" : "";
    }
    for (std::size_t i = common; i < to.size(); ++i) {
        result += to[i] == '\\' ? '/' : to[i];
    }
    return result;
}

bool standsAt(const std::string& line, std::size_t at, const std::string& part) {
    return line.compare(at, part.size(), part) == 0;
}

std::string plainLine(std::string line, const PlainOutput& page,
                      const std::vector<PlainOutput>& targets) {
    for (const PlainOutput& target : targets) {
        const std::string link = "HREF=\"" + target.path + "\"";
        for (std::size_t at = 0; at < line.size(); ++at) {
            if (standsAt(line, at, link)) {
                line = line.substr(0, at) + "HREF=\"" + plainRelative(page.path, target.path) +
                       "\"" + line.substr(at + link.size());
                break;
            }
        }
    }
    std::size_t first = 0;
    while (first < line.size() && line[first] == ' ') {
        ++first;
    }
    if (upperCase(line.substr(first, 10)) == "<BASE HREF") {
        for (std::size_t at = line.size(); at-- > 0;) {
            if (standsAt(line, at, page.path)) {
                return line.substr(0, at) + page.name + line.substr(at + page.path.size());
            }
        }
    }
    return line;
}

std::string plainPage(const std::string& bytes, const PlainOutput& page,
                      const std::vector<PlainOutput>& targets) {
    std::string result;
    std::string line;
    for (const char byte : bytes) {
        if (byte == '\r' || byte == '\n') {
            result += plainLine(line, page, targets) + byte;
            line.clear();
        } else {
            line += byte;
        }
    }
    return result + plainLine(line, page, targets);
}

// Makes definitions and pages, the same ones for the same seed.
class Generator {
  public:
    explicit Generator(unsigned seed) : random_(seed) {}

    int below(int bound) { return static_cast<int>(random_() % static_cast<unsigned>(bound)); }
    std::string oneOf(const std::vector<std::string>& choices) {
        return choices.at(static_cast<std::size_t>(below(static_cast<int>(choices.size()))));
    }
    std::string folder() {
        return oneOf({"C:\\out", "C:\\out\\", "c:\\OUT", "C:\\out\\deep\\er", "C:\\out\\a b",
                      "D:\\", "D:\\caf\xE9", "C:\\missing", "", "C:\\in", "\\\\srv\\pub\\x"});
    }
    // A page that mentions the given paths in all the right and wrong ways.
    std::string page(const std::vector<std::string>& paths) {
        std::string result;
        for (int pieces = below(60); pieces > 0; --pieces) {
            result += piece(paths);
        }
        return result;
    }

  private:
    static std::string run(std::size_t length, char byte) {
        std::string result;
        return result.append(length, byte);
    }
    std::string piece(const std::vector<std::string>& paths) {
        const std::string path = oneOf(paths);
        switch (below(16)) {
        case 0:
        case 1:
        case 2:
        case 3:
            return "HREF=\"" + path + "\"";
        case 4:
            return "href=\"" + path + "\"";
        case 5:
            return "<A HREF=\"" + path.substr(0, path.size() / 2);
        case 6:
            return "<base href=\"" + path + "\">";
        case 7:
            return "<BASE HREF=\"" + path + "\">";
        case 8:
            return upperCase(path) + path;
        case 9:
            return oneOf({" ", "  ", "\t", "\f", std::string(1, '\0'), "\\", "\"", "HREF=\""});
        case 10:
            return oneOf({"\x1A", "\xE9", "\xFF\x80", "<p>", "HREF", "H"});
        case 11:
            return run(static_cast<std::size_t>(below(400)), static_cast<char>(below(256)));
        case 12:
            return below(400) == 0 ? std::string(200'000, 'z') : "..";
        default:
            return oneOf({"\r\n", "\r\n", "\n", "\n", "\r", "\n\r", "\r\r\n"});
        }
    }

    std::mt19937 random_;
};

class GeneratedPages : public LinksWorld, public testing::Test {
  protected:
    GeneratedPages() {
        world.makeDrive('D');
        world.makeShare("\\\\srv\\pub");
        for (const char* folder :
             {"C:\\out\\deep\\er", "C:\\out\\a b", "D:\\caf\xE9", "\\\\srv\\pub\\x"}) {
            world.makeFolder(folder);
        }
    }

    // Told apart from the program: row by row, in their order.
    PlainOutput plainOutput(const std::string& type) {
        PlainOutput result;
        for (const OutputDefinition& row : definition.MPOutputs) {
            const std::string& folder = row.sOutputFolder;
            if (upperCase(row.sFileType) == type && FolderExists(world.files(), folder)) {
                result.name = "rec" + row.sExtension;
                result.path = folder + (folder.ends_with('\\') ? "" : "\\") + result.name;
            }
        }
        return result;
    }
    std::vector<PlainOutput> plainTargets(const std::vector<std::string>& types) {
        std::vector<PlainOutput> targets;
        for (const std::string& type : types) {
            targets.push_back(plainOutput(type));
            if (targets.back().path.empty()) {
                targets.pop_back();
            }
        }
        return targets;
    }
    void chooseRows(Generator& generator) {
        MyDefaultSettings(definition);
        for (OutputDefinition& row : definition.MPOutputs) {
            row.sOutputFolder = generator.folder();
            if (generator.below(8) == 0) {
                row.sFileType = generator.oneOf({"text", "HTML", "Info_file"});
            }
            if (generator.below(8) == 0) { // two outputs may have one path
                row.sExtension = generator.oneOf({".txt", ".html", "", ".x.y"});
            }
        }
    }
};

TEST_F(GeneratedPages, Two_programs_of_the_same_rule_make_the_same_bytes_of_them) {
    Generator generator(20260302);
    int compared = 0;
    int changed = 0;
    while (compared < 1000) {
        SCOPED_TRACE(compared);
        chooseRows(generator);
        const PlainOutput html = plainOutput("HTML");
        const PlainOutput faq = plainOutput("FAQ");
        if (html.path.empty() || faq.path.empty() || equalIgnoringCase(html.path, faq.path)) {
            continue;
        }
        const auto htmlTargets = plainTargets({"FAQ", "TEXT", "SGML", "XML", "DIF"});
        const auto faqTargets = plainTargets({"HTML", "TEXT", "SGML", "XML", "DIF"});
        std::vector<std::string> paths{html.path};
        for (const PlainOutput& target : htmlTargets) {
            paths.push_back(target.path);
        }
        const std::string htmlBytes = generator.page(paths);
        const std::string faqBytes = generator.page(paths);
        world.write(html.path, htmlBytes);
        world.write(faq.path, faqBytes);
        fix();
        const std::string htmlExpected = plainPage(htmlBytes, html, htmlTargets);
        const std::string faqExpected = plainPage(faqBytes, faq, faqTargets);
        ASSERT_TRUE(world.read(html.path) == htmlExpected) << html.path;
        ASSERT_TRUE(world.read(faq.path) == faqExpected) << faq.path;
        ASSERT_FALSE(world.exists("C:\\in\\tarnwick.tmp"));
        compared += 2;
        changed += (htmlBytes != htmlExpected ? 1 : 0) + (faqBytes != faqExpected ? 1 : 0);
    }
    EXPECT_THAT(desktop.messages, testing::IsEmpty());
    EXPECT_GT(changed, 700);
}

} // namespace
} // namespace tarnwick
