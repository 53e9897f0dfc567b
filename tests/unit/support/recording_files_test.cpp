#include "support/file_bytes.hpp"
#include "support/hosted_world.hpp"
#include "support/recording_files.hpp"

#include <gtest/gtest.h>

namespace tarnwick {
namespace {

TEST(RecordingFiles, Every_call_is_logged_in_its_order_and_counted) {
    HostedWorld world;
    RecordingFiles files(world.files());
    putBytes(files, R"(C:\a.txt)", "abc");
    static_cast<void>(files.canListFolder(R"(C:\x)"));
    static_cast<void>(files.canListFolder(R"(C:\)"));
    using enum FileOperation;
    EXPECT_EQ(files.calls(), (std::vector<RecordingFiles::Call>{{Create, R"(C:\a.txt)"},
                                                                {Write, R"(C:\a.txt)"},
                                                                {Close, R"(C:\a.txt)"},
                                                                {CanListFolder, R"(C:\x)"},
                                                                {CanListFolder, R"(C:\)"}}));
    EXPECT_EQ(files.count(CanListFolder), 2);
    EXPECT_EQ(files.count(CanListFolder, R"(C:\x)"), 1);
    files.forget();
    EXPECT_EQ(files.count(CanListFolder), 0);
}

} // namespace
} // namespace tarnwick
