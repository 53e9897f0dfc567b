#include "platform/hosted/hosted_command_interpreter.hpp"

#include "platform/hosted/code_page_437.hpp"
#include "platform/hosted/errors.hpp"
#include "platform/hosted/file_descriptor.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/stat.h>
#include <sys/wait.h>

#include <array>
#include <cerrno>
#include <utility>

namespace tarnwick {
namespace {

// Becomes the command; comes back only to tell why not.
int become(char* const* arguments) {
    const int nothing = ::open("/dev/null", O_RDWR);
    if (nothing < 0) {
        return errno;
    }
    for (const int stream : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) {
        ::dup2(nothing, stream);
    }
    ::execvp(arguments[0], arguments);
    return errno;
}

struct Pipe {
    FileDescriptor readingEnd;
    FileDescriptor writingEnd;
};

// Raises when there is none left to be had.
Pipe makePipe() {
    std::array<int, 2> ends{};
    if (::pipe2(ends.data(), O_CLOEXEC) != 0) {
        throw RunTimeError(ErrorNumber::PathFileAccess, errno);
    }
    return {.readingEnd = FileDescriptor(ends[0]), .writingEnd = FileDescriptor(ends[1])};
}

// Knows by a pipe, which closes when the last process ends that has inherited it.
class HostedStartedBatch : public StartedBatch {
  public:
    explicit HostedStartedBatch(FileDescriptor lifeLine) : lifeLine_(std::move(lifeLine)) {}

    [[nodiscard]] bool hasEnded() const override {
        pollfd asked{.fd = lifeLine_.get(), .events = POLLIN, .revents = 0};
        return ::poll(&asked, 1, 0) > 0;
    }

  private:
    FileDescriptor lifeLine_;
};

// Starts the command as nobody's child, so that it outlives this program and nobody need wait for
// it. It inherits `lifeLine`. The errno value when it could not be started, else 0.
int startDetached(char* const* arguments, const FileDescriptor& lifeLine) {
    auto [readingEnd, writingEnd] = makePipe();
    const pid_t child = ::fork();
    if (child < 0) {
        return errno;
    }
    if (child == 0) {
        ::setsid();
        if (::fork() == 0) {
            ::fcntl(lifeLine.get(), F_SETFD, 0);
            // The pipe closes by itself when the command starts, and carries the reason when not.
            const int reason = become(arguments);
            static_cast<void>(!::write(writingEnd.get(), &reason, sizeof reason));
        }
        ::_exit(0);
    }
    ::waitpid(child, nullptr, 0);
    writingEnd = FileDescriptor();
    int reason = 0;
    const auto count = ::read(readingEnd.get(), &reason, sizeof reason);
    return count == static_cast<ssize_t>(sizeof reason) ? reason : 0;
}

} // namespace

HostedCommandInterpreter::HostedCommandInterpreter(const HostedFiles& files,
                                                   std::vector<std::string> interpreter)
    : files_(files), interpreter_(std::move(interpreter)) {}

std::unique_ptr<StartedBatch> HostedCommandInterpreter::startHidden(std::string_view batchFile) {
    auto command = interpreter_;
    command.push_back(files_.hostPath(batchFile));
    struct stat status{};
    if (::stat(command.back().c_str(), &status) != 0 || !S_ISREG(status.st_mode)) {
        raiseSystemError(ENOENT);
    }
    std::vector<char*> arguments;
    arguments.reserve(command.size() + 1);
    for (auto& argument : command) {
        arguments.push_back(argument.data());
    }
    arguments.push_back(nullptr);
    Pipe life = makePipe();
    if (const int reason = startDetached(arguments.data(), life.writingEnd); reason != 0) {
        throw RunTimeError(ErrorNumber::PathFileAccess, reason);
    }
    return std::make_unique<HostedStartedBatch>(std::move(life.readingEnd));
}

std::string HostedCommandInterpreter::batchText(std::string_view text) const {
    return inCodePage437(text).value_or(std::string());
}

std::string HostedCommandInterpreter::systemCodePageLine() const {
    return R"(@"%SystemRoot%\System32\chcp.com" 1252 > nul)";
}

} // namespace tarnwick
