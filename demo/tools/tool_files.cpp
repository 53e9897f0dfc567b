#include "tool_files.hpp"

#include "common/line_reader.hpp"
#include "tool_failure.hpp"

#include <fstream>

namespace demo {
namespace {

constexpr std::size_t tabWidth = 8;

// A stream as the line reader wants it. What cannot be read ends the file; the caller asks the
// stream whether it was that.
class StreamFile : public tarnwick::InputFile {
  public:
    explicit StreamFile(std::istream& stream) : stream_(stream) {}
    std::size_t read(std::span<char> buffer) override {
        stream_.read(buffer.data(), static_cast<std::streamsize>(buffer.size()));
        return static_cast<std::size_t>(stream_.gcount());
    }

  private:
    std::istream& stream_;
};

std::string withoutTabs(std::string_view line) {
    std::string result;
    for (const char character : line) {
        if (character == '\t') {
            result.append(tabWidth - result.size() % tabWidth, ' ');
        } else {
            result += character;
        }
    }
    return result;
}

} // namespace

std::vector<std::string> readLines(const std::string& path, Language language) {
    std::ifstream stream(path, std::ios::binary);
    StreamFile file(stream);
    tarnwick::LineReader reader(file, tarnwick::LineEnds::Any);
    std::vector<std::string> lines;
    while (const auto line = reader.next()) {
        lines.push_back(withoutTabs(*line));
    }
    // A folder opens on some systems, and fails at the first read.
    if (!stream.is_open() || stream.bad()) {
        throw ToolFailure(Status::Unreadable, say(language, Message::CannotRead, {path}));
    }
    return lines;
}

void writeFile(const std::string& path, std::string_view content, Language language) {
    std::ofstream stream(path, std::ios::binary | std::ios::trunc);
    stream.write(content.data(), static_cast<std::streamsize>(content.size()));
    stream.close();
    if (!stream) {
        throw ToolFailure(Status::Unwritable, say(language, Message::CannotWrite, {path}));
    }
}

std::string inFolder(std::string_view folder, std::string_view name) {
    std::string result(folder);
    if (!result.empty() && !result.ends_with('\\') && !result.ends_with('/')) {
        const bool slashes = result.find('/') != std::string::npos;
        result += slashes && result.find('\\') == std::string::npos ? '/' : '\\';
    }
    return result.append(name);
}

bool isBareName(std::string_view path) {
    return path.find_first_of("\\/:") == std::string_view::npos;
}

} // namespace demo
