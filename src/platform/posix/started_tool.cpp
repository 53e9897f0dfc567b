#include "platform/posix/started_tool.hpp"

#include "platform/kept_output.hpp"

#include <fcntl.h>
#include <poll.h>
#include <sys/prctl.h>
#include <sys/syscall.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <chrono>
#include <cmath>
#include <csignal>
#include <limits>
#include <string>
#include <utility>
#include <vector>

namespace tarnwick {
namespace {

using SteadyClock = std::chrono::steady_clock;

// What the system wants of a list of texts; they must outlive it.
std::vector<char*> pointersTo(std::vector<std::string>& texts) {
    std::vector<char*> pointers;
    pointers.reserve(texts.size() + 1);
    for (std::string& text : texts) {
        pointers.push_back(text.data());
    }
    pointers.push_back(nullptr);
    return pointers;
}

// All that the new process needs, made before there is one: it may not ask for memory.
struct Beginning {
    const char* program;
    char* const* arguments;
    const char* folder;
    int input;
    int output;
    pid_t parent;
};

// Blocks every signal of this thread as long as it lives: the new process shares our memory until
// its program begins, and must not run our handlers on it.
class NoSignals {
  public:
    NoSignals() {
        sigset_t all{};
        ::sigfillset(&all);
        ::pthread_sigmask(SIG_SETMASK, &all, &before_);
    }
    NoSignals(const NoSignals&) = delete;
    NoSignals& operator=(const NoSignals&) = delete;
    NoSignals(NoSignals&&) = delete;
    NoSignals& operator=(NoSignals&&) = delete;
    ~NoSignals() { ::pthread_sigmask(SIG_SETMASK, &before_, nullptr); }

  private:
    sigset_t before_{};
};

// As this process was started; what it ignores or blocks since then is nothing to the tool.
void hearSignalsAgain() noexcept {
    static_cast<void>(::signal(SIGPIPE, SIG_DFL));
    sigset_t none{};
    ::sigemptyset(&none);
    ::sigprocmask(SIG_SETMASK, &none, nullptr);
}

// In the new process, which shares the memory of this one: the error, where the program cannot
// begin. It dies with us: where we are gone already, at once.
int begin(const Beginning& from, std::atomic<pid_t>& group) noexcept {
    ::setpgid(0, 0);
    group = ::getpid();
    ::prctl(PR_SET_PDEATHSIG, SIGKILL);
    if (::getppid() != from.parent) {
        return ECANCELED;
    }
    if (::chdir(from.folder) != 0 || ::dup2(from.input, STDIN_FILENO) < 0 ||
        ::dup2(from.output, STDOUT_FILENO) < 0 || ::dup2(from.output, STDERR_FILENO) < 0) {
        return errno;
    }
    hearSignalsAgain();
    ::execve(from.program, from.arguments, ::environ);
    return errno;
}

// How many milliseconds to wait, for poll; -1 is for ever.
int millisecondsUntil(const std::optional<SteadyClock::time_point>& end) {
    if (!end) {
        return -1;
    }
    const std::chrono::duration<double, std::milli> left = *end - SteadyClock::now();
    constexpr double longest = std::numeric_limits<int>::max();
    return static_cast<int>(std::clamp(std::ceil(left.count()), 0.0, longest));
}

// Takes what there is; false at the end of the stream.
bool readAvailable(const FileDescriptor& stream, KeptOutput& said) {
    std::array<char, 16384> block; // NOLINT(*-member-init): filled below
    for (;;) {
        const auto count = ::read(stream.get(), block.data(), block.size());
        if (count > 0) {
            said.add({block.data(), static_cast<std::size_t>(count)});
        } else if (count == 0 || (errno != EINTR && errno != EAGAIN)) {
            return false;
        } else if (errno == EAGAIN) {
            return true;
        }
    }
}

FileDescriptor openEnd(pid_t process) noexcept {
    return FileDescriptor(static_cast<int>(::syscall(SYS_pidfd_open, process, 0)));
}

} // namespace

StartedTool::StartedTool(const ToolCall& call, std::atomic<pid_t>& group) {
    std::array<int, 2> ends{};
    const FileDescriptor nothing(::open("/dev/null", O_RDONLY | O_CLOEXEC));
    if (!nothing.isOpen() || ::pipe2(ends.data(), O_CLOEXEC) != 0) {
        error_ = errno;
        return;
    }
    output_ = FileDescriptor(ends[0]);
    const FileDescriptor written(ends[1]);
    ::fcntl(output_.get(), F_SETFL, O_NONBLOCK);
    std::vector<std::string> words{call.program};
    words.insert(words.end(), call.arguments.begin(), call.arguments.end());
    const auto arguments = pointersTo(words);
    const Beginning beginning{.program = call.program.c_str(),
                              .arguments = arguments.data(),
                              .folder = call.folder.c_str(),
                              .input = nothing.get(),
                              .output = written.get(),
                              .parent = ::getpid()};
    volatile int error = 0; // written by the new process
    const NoSignals quiet;
    // A copy of all our memory, which may be large, would be made for nothing.
    process_ = ::vfork(); // NOLINT(clang-analyzer-*,*-unsafe-functions,cert-msc*)
    if (process_ == 0) {
        error = begin(beginning, group); // NOLINT(clang-analyzer-unix.Vfork): made for that
        ::_exit(127);
    }
    error_ = process_ < 0 ? errno : error;
    if (error_ == 0) {
        ended_ = openEnd(process_);
        error_ = ended_.isOpen() ? 0 : errno;
    }
    if (error_ != 0 && process_ > 0) {
        ::kill(process_, SIGKILL); // where it has begun, nobody could wait for it
        group = 0;
        while (::waitpid(process_, nullptr, 0) < 0 && errno == EINTR) {
        }
    }
}

ToolEnd StartedTool::wait(const FileDescriptor& halt, std::optional<double> timeLimit,
                          std::atomic<pid_t>& group) {
    const auto begun = SteadyClock::now();
    std::optional<SteadyClock::time_point> last;
    if (timeLimit) {
        constexpr double longest = 1e9; // seconds: no clock can be set for more, and nobody waits
        last = begun + std::chrono::duration_cast<SteadyClock::duration>(
                           std::chrono::duration<double>(std::min(*timeLimit, longest)));
    }
    ToolEnd end;
    KeptOutput said;
    std::array<pollfd, 3> waited{{{.fd = ended_.get(), .events = POLLIN, .revents = 0},
                                  {.fd = halt.get(), .events = POLLIN, .revents = 0},
                                  {.fd = output_.get(), .events = POLLIN, .revents = 0}}};
    for (bool working = true; working;) {
        const int ready = ::poll(waited.data(), waited.size(), millisecondsUntil(last));
        if (ready > 0 && waited[2].revents != 0 && !readAvailable(output_, said)) {
            waited[2].fd = -1; // closed by the tool, which may go on
        }
        if (ready > 0 && waited[0].revents != 0) {
            working = false;
        } else if (ready > 0 && waited[1].revents != 0) {
            end.kind = ToolEnd::Kind::Halted;
            working = false;
        } else if (ready == 0 && last && SteadyClock::now() >= *last) {
            end.kind = ToolEnd::Kind::TimedOut;
            working = false;
        }
    }
    ::kill(-process_, SIGKILL); // it, or what it has left behind
    siginfo_t how{};
    while (::waitid(P_PID, static_cast<id_t>(process_), &how, WEXITED | WNOWAIT) != 0 &&
           errno == EINTR) {
    }
    group = 0; // as long as nobody has asked for its end, the number is not given to another
    while (::waitid(P_PID, static_cast<id_t>(process_), &how, WEXITED) != 0 && errno == EINTR) {
    }
    static_cast<void>(readAvailable(output_, said));
    end.said = said.text();
    end.seconds = std::chrono::duration<double>(SteadyClock::now() - begun).count();
    if (end.kind == ToolEnd::Kind::Exited) {
        end.kind = how.si_code == CLD_EXITED ? ToolEnd::Kind::Exited : ToolEnd::Kind::Signalled;
        end.code = how.si_status;
    }
    return end;
}

} // namespace tarnwick
