#include "common/trap.hpp"
#include "support/scripted_desktop.hpp"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>

namespace tarnwick {
namespace {

std::string reportOf(const auto& raise) {
    ScriptedDesktop desktop;
    trap(desktop, "frmMain", "Private Sub x()", raise);
    return desktop.messages.empty() ? "" : desktop.messages.front().text;
}

std::string report(std::string_view number, std::string_view description,
                   std::string_view lastDllError = "0") {
    return "Caller:            frmMain - Private Sub x()\r\nSource:            Tarnwick\r\nNumber: "
           "    "
           "       " +
           std::string(number) + "\r\nDescription:       " + std::string(description) +
           "\r\nLastDllErrorError: " + std::string(lastDllError);
}

TEST(Trap, Without_an_error_nothing_is_shown) {
    bool done = false;
    EXPECT_EQ(reportOf([&] { done = true; }), "");
    EXPECT_TRUE(done);
}

TEST(Trap, An_error_is_reported_and_goes_no_further) {
    EXPECT_EQ(reportOf([] { throw RunTimeError(ErrorNumber::PathNotFound, 3); }),
              report("76", "Path not found", "3"));
}

class DesktopWithoutMemory : public ScriptedDesktop {
  public:
    MessageAnswer show(const Message& /*message*/) override { throw std::bad_alloc(); }
};

TEST(Trap, A_report_that_cannot_be_shown_is_given_up) {
    DesktopWithoutMemory desktop;
    EXPECT_NO_THROW(trap(desktop, "frmMain", "Private Sub x()",
                         [] { throw RunTimeError(ErrorNumber::PathNotFound); }));
}

TEST(Trap, Errors_of_the_language_itself_are_reported_too) {
    EXPECT_EQ(reportOf([] { throw std::bad_alloc(); }), report("7", "Out of memory"));
    EXPECT_EQ(reportOf([] { throw std::out_of_range("at 5"); }),
              report("51", "Internal error: at 5"));
    EXPECT_EQ(reportOf([] { throw 5; }), // NOLINT: what nobody should throw
              report("51", "Internal error"));
}

TEST(RunTimeErrors, Every_number_has_its_description) {
    const auto described = [](ErrorNumber number) {
        return std::to_string(RunTimeError(number).record().number) + " " +
               RunTimeError(number).what();
    };
    EXPECT_EQ(described(ErrorNumber::OutOfMemory), "7 Out of memory");
    EXPECT_EQ(described(ErrorNumber::InternalError), "51 Internal error");
    EXPECT_EQ(described(ErrorNumber::BadFileName), "52 Bad file name or number");
    EXPECT_EQ(described(ErrorNumber::FileNotFound), "53 File not found");
    EXPECT_EQ(described(ErrorNumber::DeviceIO), "57 Device I/O error");
    EXPECT_EQ(described(ErrorNumber::FileAlreadyExists), "58 File already exists");
    EXPECT_EQ(described(ErrorNumber::DiskFull), "61 Disk full");
    EXPECT_EQ(described(ErrorNumber::TooManyFiles), "67 Too many files");
    EXPECT_EQ(described(ErrorNumber::DeviceUnavailable), "68 Device unavailable");
    EXPECT_EQ(described(ErrorNumber::PermissionDenied), "70 Permission denied");
    EXPECT_EQ(described(ErrorNumber::DiskNotReady), "71 Disk not ready");
    EXPECT_EQ(described(ErrorNumber::PathFileAccess), "75 Path/File access error");
    EXPECT_EQ(described(ErrorNumber::PathNotFound), "76 Path not found");
    EXPECT_EQ(described(static_cast<ErrorNumber>(9999)),
              "9999 Application-defined or object-defined error");
}

TEST(RunTimeErrors, An_error_is_told_apart_by_its_number) {
    EXPECT_TRUE(RunTimeError(ErrorNumber::FileNotFound).is(ErrorNumber::FileNotFound));
    EXPECT_FALSE(RunTimeError(ErrorNumber::DiskFull).is(ErrorNumber::FileNotFound));
}

} // namespace
} // namespace tarnwick
