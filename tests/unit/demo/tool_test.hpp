#pragma once

#include "demo/tools/tool.hpp"
#include "support/hosted_world.hpp"

#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <vector>

namespace demo {

// Runs the tools in a folder of the test's own, which is empty at first and gone at the end.
class ToolTest : public testing::Test {
  protected:
    [[nodiscard]] std::string path(const std::string& name) const {
        return folder_.hostPath() + "/" + name;
    }
    void write(const std::string& name, const std::string& content) const {
        std::ofstream(path(name), std::ios::binary) << content;
    }
    [[nodiscard]] std::string read(const std::string& name) const {
        std::ifstream stream(path(name), std::ios::binary);
        EXPECT_TRUE(stream.is_open()) << name;
        std::ostringstream content;
        content << stream.rdbuf();
        return content.str();
    }
    [[nodiscard]] bool exists(const std::string& name) const {
        return std::filesystem::exists(path(name));
    }

    int mp(const std::vector<std::string>& arguments) {
        errors_.str("");
        return runMp(arguments, errors_);
    }
    int cns(const std::vector<std::string>& arguments) {
        errors_.str("");
        out_.str("");
        return runCns(arguments, out_, errors_);
    }
    [[nodiscard]] std::string errors() const { return errors_.str(); }
    [[nodiscard]] std::string out() const { return out_.str(); }

  private:
    tarnwick::TemporaryFolder folder_;
    std::ostringstream out_;
    std::ostringstream errors_;
};

// `text`, written with line feeds, with the line ends of the tools' files.
inline std::string crlf(std::string_view text) {
    std::string result;
    for (const char character : text) {
        result.append(character == '\n' ? "\r\n" : std::string(1, character));
    }
    return result;
}

// A record without a fault.
inline constexpr std::string_view smallRecord = R"(Identification:
  Citation:
    Title: Ponds & "pools"
    Originator: Pond Office
    Publication_Date: 20200229
  Description:
    Abstract:
      Ponds <1 ha.

      Group: none
  Extent:
    West: -3.5
    East: -2
    South: 54
    North: 54.5
Metadata:
  Metadata_Date: 20200301
)";

} // namespace demo
