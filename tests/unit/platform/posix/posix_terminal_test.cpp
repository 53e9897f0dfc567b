#include "platform/posix/file_descriptor.hpp"
#include "platform/posix/posix_terminal.hpp"

#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/ioctl.h>

#include <array>
#include <cstdlib>
#include <string>
#include <thread>

namespace tarnwick {
namespace {

struct Pipe {
    Pipe() {
        std::array<int, 2> ends{};
        if (::pipe2(ends.data(), O_CLOEXEC) == 0) {
            out = FileDescriptor(ends[0]);
            in = FileDescriptor(ends[1]);
        }
    }
    FileDescriptor out;
    FileDescriptor in;
};

std::string all(const FileDescriptor& from) {
    std::string text;
    std::array<char, 4096> block{};
    for (ssize_t count = 0; (count = ::read(from.get(), block.data(), block.size())) > 0;) {
        text.append(block.data(), static_cast<std::size_t>(count));
    }
    return text;
}

// A terminal of so many columns that nobody sees.
struct Screen {
    explicit Screen(unsigned short columns)
        : master(::posix_openpt(O_RDWR | O_NOCTTY | O_CLOEXEC)) {
        ::grantpt(master.get());
        ::unlockpt(master.get());
        slave = FileDescriptor(::ioctl(master.get(), TIOCGPTPEER, O_RDWR | O_NOCTTY | O_CLOEXEC));
        const winsize size{.ws_row = 25, .ws_col = columns, .ws_xpixel = 0, .ws_ypixel = 0};
        ::ioctl(slave.get(), TIOCSWINSZ, &size);
    }
    FileDescriptor master;
    FileDescriptor slave;
};

TEST(PosixTerminal, A_terminal_is_known_and_how_wide_it_is) {
    const Screen screen(47);
    ASSERT_TRUE(screen.slave.isOpen());
    const Pipe pipe;
    const PosixTerminal errorsOnScreen(pipe.in.get(), screen.slave.get());
    EXPECT_FALSE(errorsOnScreen.isTerminal(Stream::Output));
    EXPECT_TRUE(errorsOnScreen.isTerminal(Stream::Error));
    EXPECT_EQ(errorsOnScreen.width(), 47);
    const PosixTerminal outputOnScreen(screen.slave.get(), pipe.in.get());
    EXPECT_TRUE(outputOnScreen.isTerminal(Stream::Output));
    EXPECT_EQ(outputOnScreen.width(), 47);
}

TEST(PosixTerminal, Where_its_width_is_not_known_it_is_80) {
    const Screen screen(0);
    const Pipe pipe;
    EXPECT_EQ(PosixTerminal(screen.slave.get(), screen.slave.get()).width(), 80);
    EXPECT_EQ(PosixTerminal(pipe.in.get(), pipe.in.get()).width(), 80);
}

TEST(PosixTerminal, Each_stream_gets_its_text) {
    Pipe output;
    Pipe error;
    PosixTerminal terminal(output.in.get(), error.in.get());
    EXPECT_TRUE(terminal.write(Stream::Output, "caf\u00E9\n"));
    EXPECT_TRUE(terminal.write(Stream::Error, "no\n"));
    EXPECT_TRUE(terminal.write(Stream::Error, ""));
    output.in = FileDescriptor();
    error.in = FileDescriptor();
    EXPECT_EQ(all(output.out), "caf\u00E9\n");
    EXPECT_EQ(all(error.out), "no\n");
}

TEST(PosixTerminal, Much_text_is_written_whole_also_where_writing_does_not_wait) {
    const std::string text(1'000'000, 'x'); // more than a pipe holds
    Pipe pipe;
    ASSERT_EQ(::fcntl(pipe.in.get(), F_SETFL, O_NONBLOCK), 0);
    std::string received;
    std::thread reader([&] { received = all(pipe.out); });
    PosixTerminal terminal(pipe.in.get(), pipe.in.get());
    EXPECT_TRUE(terminal.write(Stream::Output, text));
    pipe.in = FileDescriptor();
    reader.join();
    EXPECT_EQ(received, text);
}

TEST(PosixTerminal, Where_nobody_reads_any_more_it_says_so_from_then_on) {
    Pipe output;
    const Pipe error;
    PosixTerminal terminal(output.in.get(), error.in.get());
    output.out = FileDescriptor();
    EXPECT_FALSE(terminal.write(Stream::Output, "lost\n"));
    EXPECT_FALSE(terminal.write(Stream::Output, ""));
    EXPECT_TRUE(terminal.write(Stream::Error, "told\n"));
}

} // namespace
} // namespace tarnwick
