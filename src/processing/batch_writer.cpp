#include "processing/batch_writer.hpp"

#include "common/text.hpp"

#include <utility>

namespace tarnwick {
namespace {

// "chcp" tells the code page behind a colon, in some languages with a full stop behind it. It is a
// program: by its bare name the one in the current folder would run, which is that of the records.
constexpr std::string_view rememberCodePage =
    R"(@for /f "tokens=2 delims=:." %%c in ('"%SystemRoot%\System32\chcp.com"') do @set TARNWICK_CODE_PAGE=%%c)";
constexpr std::string_view putCodePageBack =
    R"(@"%SystemRoot%\System32\chcp.com" %TARNWICK_CODE_PAGE% > nul)";
constexpr std::string_view forgetCodePage = "@set TARNWICK_CODE_PAGE=";

} // namespace

BatchWriter::BatchWriter(std::unique_ptr<OutputFile> file, const CommandInterpreter& interpreter,
                         CodePage atEnd)
    : interpreter_(interpreter), file_(std::move(file)), atEnd_(atEnd) {}

void BatchWriter::line(std::string_view text) {
    if (systemCodePage_ || isAscii(text)) {
        append(text);
    } else if (const std::string converted = interpreter_.batchText(text); !converted.empty()) {
        append(converted);
    } else {
        systemCodePage_ = true;
        if (atEnd_ == CodePage::PutBack) {
            append(rememberCodePage);
        }
        append(interpreter_.systemCodePageLine());
        append(text);
    }
}

void BatchWriter::end() {
    if (systemCodePage_ && atEnd_ == CodePage::PutBack) {
        append(putCodePageBack);
        append(forgetCodePage);
    }
}

void BatchWriter::append(std::string_view text) {
    file_->write(text);
    file_->write(lineEnd);
}

void changeToFolder(BatchWriter& batch, std::string_view folder) {
    const auto colon = folder.find(':');
    if (colon == std::string_view::npos) {
        return;
    }
    const std::string_view path = trim(folder.substr(colon + 1));
    // "cd" takes blanks as they are, but the interpreter would end the command at an "&".
    const bool needsQuotes = path.find_first_of("&^") != std::string_view::npos;
    batch.line("@echo off");
    batch.line(trim(folder.substr(0, colon + 1)));
    batch.line("cd " + (needsQuotes ? quoted(path) : std::string(path)));
    batch.line("@echo on");
}

} // namespace tarnwick
