#include "support/fake_command_interpreter.hpp"

#include "support/code_page_437.hpp"
#include "support/file_bytes.hpp"

namespace tarnwick {

namespace {

class FakeStartedBatch : public StartedBatch {
  public:
    FakeStartedBatch(const FakeCommandInterpreter& interpreter, std::size_t number)
        : interpreter_(interpreter), number_(number) {}

    [[nodiscard]] bool hasEnded() const override {
        return number_ < interpreter_.started.size() || !interpreter_.hasEnded ||
               interpreter_.hasEnded();
    }

  private:
    const FakeCommandInterpreter& interpreter_;
    std::size_t number_;
};

} // namespace

std::unique_ptr<StartedBatch> FakeCommandInterpreter::startHidden(std::string_view batchFile) {
    if (failure) {
        throw RunTimeError(*failure);
    }
    if (files_.firstNormalFile(batchFile).empty()) {
        throw RunTimeError(ErrorNumber::FileNotFound);
    }
    started.push_back({std::string(batchFile), bytesOf(files_, batchFile)});
    if (run) {
        run(started.back());
    }
    return std::make_unique<FakeStartedBatch>(*this, started.size());
}

std::string FakeCommandInterpreter::batchText(std::string_view text) const {
    return inCodePage437(text).value_or(std::string());
}

std::string FakeCommandInterpreter::systemCodePageLine() const {
    return R"(@"%SystemRoot%\System32\chcp.com" 1252 > nul)";
}

} // namespace tarnwick
