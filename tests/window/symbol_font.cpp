#include "window/symbol_font.hpp"

#include <array>
#include <cstdint>
#include <utility>
#include <vector>

namespace tarnwick {
namespace {

constexpr int em = 1000;
constexpr unsigned emptyCode = 0xF0A8;
constexpr unsigned tickedCode = 0xF0FE;

// Numbers as a font file has them, the highest byte first.
class Table {
  public:
    Table& words(const std::vector<int>& values) {
        for (const int value : values) {
            word(static_cast<unsigned>(value));
        }
        return *this;
    }
    Table& longs(const std::vector<unsigned>& values) {
        for (const unsigned value : values) {
            word(value >> 16U);
            word(value);
        }
        return *this;
    }
    Table& text(const std::string& text) {
        bytes_ += text;
        return *this;
    }
    [[nodiscard]] const std::string& bytes() const noexcept { return bytes_; }

  private:
    void word(unsigned value) {
        bytes_ += static_cast<char>(value >> 8U & 0xFFU);
        bytes_ += static_cast<char>(value & 0xFFU);
    }

    std::string bytes_;
};

std::string boxOf(int height) {
    constexpr int onCurve = 0x0101; // of two points
    Table glyph;
    glyph.words({1, 0, 0, em, height, 3, 0, onCurve, onCurve});
    return glyph.words({0, 0, em, 0, 0, height, 0, -height}).bytes();
}

std::string wide(const std::string& text) {
    Table units;
    for (const char character : text) {
        units.words({character});
    }
    return units.bytes();
}

std::string names(const std::string& family) {
    const std::string text = wide(family);
    const int length = static_cast<int>(text.size());
    Table table;
    table.words({0, 3, 6 + 3 * 12});
    for (const int kind : {1, 2, 4}) { // family, style and both
        table.words({3, 0, 0x409, kind, length, 0});
    }
    return table.text(text).bytes();
}

std::string characters() {
    const int empty = static_cast<int>(emptyCode);
    const int ticked = static_cast<int>(tickedCode);
    Table table;
    table.words({0, 1, 3, 0, 0, 12});        // one, for symbols
    table.words({4, 40, 0, 6, 4, 1, 2});     // of three ranges
    table.words({empty, ticked, 0xFFFF, 0}); // their ends
    table.words({empty, ticked, 0xFFFF});    // and beginnings
    table.words({2 - empty, 1 - ticked, 1}); // and what leads from there to the picture
    return table.words({0, 0, 0}).bytes();
}

std::string metrics() {
    Table table;
    table.words({1, em, 400, 5, 0}).words({0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 0});
    table.words({0, 0, 0, 0, 0}).longs({0, 0, 0, 0}).text("none");
    table.words({0x40, static_cast<int>(emptyCode), static_cast<int>(tickedCode)});
    return table.words({em, 0, 0, em, 0}).longs({0x80000000U, 0}).bytes();
}

std::vector<std::pair<std::string, std::string>> tablesOf(const std::string& family) {
    const std::string ticked = boxOf(em);
    const std::string empty = boxOf(em / 2);
    const auto first = static_cast<unsigned>(ticked.size());
    const auto end = first + static_cast<unsigned>(empty.size());
    return {
        {"OS/2", metrics()},
        {"cmap", characters()},
        {"glyf", ticked + empty},
        {"head", Table()
                     .longs({0x10000, 0x10000, 0, 0x5F0F3CF5})
                     .words({3, em})
                     .longs({0, 0, 0, 0})
                     .words({0, 0, em, em, 0, 8, 2, 1, 0})
                     .bytes()},
        {"hhea", Table()
                     .longs({0x10000})
                     .words({em, 0, 0, em, 0, 0, em, 1, 0, 0, 0, 0, 0, 0, 0, 3})
                     .bytes()},
        {"hmtx", Table().words({em, 0, em, 0, em, 0}).bytes()},
        {"loca", Table().longs({0, 0, first, end}).bytes()},
        {"maxp",
         Table().longs({0x10000}).words({3, 4, 1, 0, 0, 2, 0, 0, 0, 0, 0, 0, 0, 0}).bytes()},
        {"name", names(family)},
        {"post", Table().longs({0x30000, 0, 0, 0, 0, 0, 0, 0}).bytes()},
    };
}

unsigned checksumOf(const std::string& bytes) {
    unsigned sum = 0;
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        sum += static_cast<unsigned>(static_cast<unsigned char>(bytes[i])) << (24U - 8U * (i % 4));
    }
    return sum;
}

std::string fontFile(const std::string& family) {
    const auto tables = tablesOf(family);
    Table head;
    head.longs({0x10000}).words({static_cast<int>(tables.size()), 128, 3, 32});
    std::string body;
    const std::size_t start = 12 + 16 * tables.size();
    for (const auto& [name, bytes] : tables) {
        head.text(name).longs({checksumOf(bytes), static_cast<unsigned>(start + body.size()),
                               static_cast<unsigned>(bytes.size())});
        body += bytes;
        body.resize((body.size() + 3) / 4 * 4);
    }
    return head.bytes() + body;
}

// Into the folder for temporary files; the file's path.
std::wstring written(const std::string& bytes) {
    std::array<wchar_t, MAX_PATH + 1> folder{};
    GetTempPathW(static_cast<DWORD>(folder.size()), folder.data());
    std::wstring path = std::wstring(folder.data()) + L"symbols.ttf";
    HANDLE file = CreateFileW(path.c_str(), GENERIC_WRITE, 0, nullptr, CREATE_ALWAYS,
                              FILE_ATTRIBUTE_NORMAL, nullptr);
    DWORD count = 0;
    WriteFile(file, bytes.data(), static_cast<DWORD>(bytes.size()), &count, nullptr);
    CloseHandle(file);
    return path;
}

} // namespace

SymbolFont::SymbolFont(const std::string& family)
    : file_(written(fontFile(family))),
      installed_(AddFontResourceExW(file_.c_str(), FR_PRIVATE, nullptr) != 0) {}

SymbolFont::~SymbolFont() {
    RemoveFontResourceExW(file_.c_str(), FR_PRIVATE, nullptr);
    DeleteFileW(file_.c_str());
}

} // namespace tarnwick
