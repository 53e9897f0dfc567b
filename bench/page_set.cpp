#include "page_set.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cstdint>
#include <cstdlib>
#include <fstream>
#include <random>
#include <string_view>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

struct Product {
    std::string_view folder;
    std::string_view extension;
};
constexpr std::array<Product, 6> products{{{"html", ".html"},
                                           {"faq", "_faq.htm"},
                                           {"text", ".txt"},
                                           {"sgml", ".sgml"},
                                           {"xml", ".xml"},
                                           {"dif", ".dif"}}};

std::string pathOf(const Product& product, const std::string& record) {
    return "C:\\out\\" + std::string(product.folder) + '\\' + record +
           std::string(product.extension);
}

// One page, with the same sequence of lines for the same `seed`.
void writePage(const fs::path& file, const Product& page, const std::string& record,
               std::size_t size, unsigned seed) {
    constexpr std::array<std::string_view, 8> plain{
        "<dt><em>Originator:</em> Survey of the Inner Lakes</dt>",
        "<dd>Depth soundings along forty profiles, corrected for the level of the day.</dd>",
        "  <p>What does this data set describe?</p>",
        "<H3>How was it made, and by whom?</H3>",
        "\t<li>Horizontal accuracy: 2.5 m</li>",
        "",
        "Caf\xE9 au bord du lac; 12 &lt; 15",
        "<hr><dl compact><dt>Publication_Date: 20260302<dd>Spatial_Domain: Bounding Coordinates"};
    std::minstd_rand random(seed);
    std::ofstream out(file, std::ios::binary);
    std::size_t written = 0;
    const auto line = [&](const std::string& text) {
        out << text << "\r\n";
        written += text.size() + 2;
    };
    line("<base href=\"" + pathOf(page, record) + "\">");
    while (written < size) {
        const auto choice = random() % 24;
        if (choice == 0) {
            const Product& target = products.at(random() % products.size());
            const bool toItself = target.folder == page.folder;
            line(toItself ? "<A HREF=\"#top\">Top</A>"
                          : "<li><A HREF=\"" + pathOf(target, record) + "\">Other form</A></li>");
        } else if (choice == 1) {
            line(R"(See <A HREF="http://www.example.org/lakes/index.html">the lakes</A>.)");
        } else {
            line(std::string(plain.at(random() % plain.size())));
        }
    }
}

std::string contentOf(const fs::path& file) {
    std::string content(fs::file_size(file), '\0');
    std::ifstream(file, std::ios::binary)
        .read(content.data(), static_cast<std::streamsize>(content.size()));
    return content;
}

// In memory where there is room: the programs are to be compared, not what the disk is doing.
fs::path roomyFolder() {
    constexpr std::uintmax_t needed = 4'000'000'000;
    std::error_code missing;
    const fs::path memory = "/dev/shm";
    const fs::space_info space = fs::space(memory, missing);
    const bool chosen = std::getenv("TMPDIR") != nullptr; // NOLINT(concurrency-mt-unsafe)
    return chosen || missing || space.available < needed ? fs::temp_directory_path() : memory;
}

} // namespace

PageSet::PageSet(int pages, std::size_t pageSize)
    : root_(roomyFolder() /
            ("tarnwick-links-" + std::to_string(pages) + '-' + std::to_string(pageSize))),
      single_(pages == 1) {
    fs::remove_all(root_);
    fs::create_directories(root_ / "c/in");
    fs::create_directories(rivals());
    for (const Product& product : products) {
        fs::create_directories(ours() / product.folder);
        fs::create_directories(originals() / product.folder);
    }
    unsigned seed = 1;
    for (int number = 0; static_cast<int>(pages_.size()) < pages; ++number) {
        const std::string record = "Record " + std::to_string(number);
        records_.push_back(record + ".met");
        for (const Product& page : {products[0], products[1]}) {
            if (static_cast<int>(pages_.size()) < pages) {
                pages_.push_back(fs::path(page.folder) / (record + std::string(page.extension)));
                writePage(originals() / pages_.back(), page, record, pageSize, seed++);
            }
        }
    }
}

PageSet::~PageSet() {
    std::error_code ignored;
    fs::remove_all(root_, ignored);
}

void PageSet::settle() const {
    const int folder = ::open(root_.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC);
    ::syncfs(folder);
    ::close(folder);
}

BatchDefinition PageSet::definition() const {
    BatchDefinition result;
    MyDefaultSettings(result);
    result.sInputFolder = "C:\\in";
    for (const Product& product : products) {
        for (OutputDefinition& row : result.MPOutputs) {
            if (row.sExtension == product.extension) {
                row.sOutputFolder = "C:\\out\\" + std::string(product.folder);
            }
        }
    }
    return result;
}

// The record's name is the same on both sides of every change: the folders are enough, so that one
// script serves all pages. A single page needs no change of links to itself.
std::vector<std::string> PageSet::sedCommand(const std::string& locale) const {
    std::string script;
    for (const Product& product : products) {
        const std::string folder(product.folder);
        if (!single_ || folder != "html") {
            script += R"(s|HREF="C:\\out\\)" + folder + R"(\\|HREF="../)" + folder + "/|\n";
        }
    }
    script += "/^ *<base href/I{s|C:\\\\out\\\\html\\\\||;s|C:\\\\out\\\\faq\\\\||}\n";
    std::vector<std::string> command{"env", "LC_ALL=" + locale, "sed", "-i", "-e", script};
    for (const fs::path& page : pages_) {
        command.push_back((rivals() / page).string());
    }
    return command;
}

bool PageSet::sameResults() const {
    for (const fs::path& page : pages_) {
        const std::string result = contentOf(ours() / page);
        if (result != contentOf(rivals() / page) || result == contentOf(originals() / page)) {
            return false;
        }
    }
    return true;
}

} // namespace tarnwick
