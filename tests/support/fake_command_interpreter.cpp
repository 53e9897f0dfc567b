#include "support/fake_command_interpreter.hpp"

#include "platform/hosted/code_page_437.hpp"
#include "support/file_bytes.hpp"

namespace tarnwick {

void FakeCommandInterpreter::startHidden(std::string_view batchFile) {
    if (failure) {
        throw RunTimeError(*failure);
    }
    started.push_back({std::string(batchFile), bytesOf(files_, batchFile)});
    if (run) {
        run(started.back());
    }
}

std::string FakeCommandInterpreter::batchText(std::string_view text) const {
    return inCodePage437(text).value_or(std::string());
}

std::string FakeCommandInterpreter::systemCodePageLine() const {
    return "@chcp 1252 > nul";
}

} // namespace tarnwick
