#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace tarnwick::test {

// Tarnwick.exe with both tools in a folder of its own, whose name has a blank, with some records
// and output folders, and a temporary folder that the program gets as its TEMP, for a user who has
// no stored settings yet. All of it is removed in the end. Names are in the system's 8-bit code
// page.
class Installation {
  public:
    Installation();
    Installation(const Installation&) = delete;
    Installation& operator=(const Installation&) = delete;
    ~Installation();

    // A path below the installation's folder, such as path("out\\text").
    [[nodiscard]] std::string path(std::string_view below) const;
    [[nodiscard]] std::filesystem::path program() const { return folder_ / "Tarnwick.exe"; }

    void write(std::string_view below, std::string_view content) const;
    [[nodiscard]] std::string read(std::string_view below) const;
    // Puts another program of the build folder, such as "tests/window/trying_tool.exe", in the
    // place of MP.
    void replaceMP(std::string_view program) const;
    // Puts a program of the build folder beside the others.
    void add(std::string_view program) const;
    // The demo's records as the records.
    void takeDemoRecords() const;
    void makeFolder(std::string_view below) const;
    [[nodiscard]] bool exists(std::string_view below) const;
    // The names in the temporary folder, sorted, one behind the other with blanks.
    [[nodiscard]] std::string temporaryFiles() const;

    // An INI file's text: both tools, all records in "in", everything built into "out".
    [[nodiscard]] std::string definition() const;

  private:
    std::filesystem::path folder_;
};

// A small record without a fault, in the stand-ins' format.
[[nodiscard]] std::string record(std::string_view title);

} // namespace tarnwick::test
