#include "processing/batch_writer.hpp"

#include "common/text.hpp"

#include <algorithm>
#include <cstddef>

namespace tarnwick {
namespace {

constexpr std::size_t pendingLimit = std::size_t{256} * 1024;

bool isAscii(std::string_view text) {
    return std::ranges::none_of(text, [](char c) { return static_cast<unsigned char>(c) > 0x7F; });
}

} // namespace

BatchWriter::BatchWriter(Files& files, const CommandInterpreter& interpreter, std::string_view path)
    : interpreter_(interpreter), file_(files.create(path)) {}

void BatchWriter::line(std::string_view text) {
    if (systemCodePage_ || isAscii(text)) {
        append(text);
    } else if (const std::string converted = interpreter_.batchText(text); !converted.empty()) {
        append(converted);
    } else {
        systemCodePage_ = true;
        append(interpreter_.systemCodePageLine());
        append(text);
    }
}

void BatchWriter::append(std::string_view text) {
    pending_.append(text).append(lineEnd);
    if (pending_.size() >= pendingLimit) {
        file_->write(pending_);
        pending_.clear();
    }
}

void BatchWriter::close() {
    file_->write(pending_);
    pending_.clear();
    file_->close();
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
