// A page that is open in another process, a real one.

#include "contract/contract_fixture.hpp"
#include "postprocess/relative_links.hpp"
#include "support/eventually.hpp"
#include "support/scripted_desktop.hpp"

#include <windows.h>

#include <gmock/gmock.h>

namespace tarnwick {
namespace {

using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

class Win32Links : public ContractTest {};

TEST_F(Win32Links, A_page_that_another_process_has_open_stays_whole_until_it_is_closed) {
    BatchDefinition definition;
    MyDefaultSettings(definition);
    definition.sInputFolder = platform->scratch();
    for (OutputDefinition& row : definition.MPOutputs) {
        row.sOutputFolder = platform->scratch();
    }
    const std::string before = "HREF=\"" + in("rec.txt") + "\"\r\n";
    put("rec.html", before);
    // The interpreter keeps the page open for writing as long as the inner batch goes on.
    put("inner.bat", "@echo begun> \"" + in("begun") + "\"\r\n" +
                         platform->batchThatWaits(in("signal"), in("done")));
    put("outer.bat", "@echo off\r\ncall \"" + in("inner.bat") + "\" >> \"" + in("rec.html") +
                         "\"\r\necho ended> \"" + in("ended") + "\"\r\n");
    platform->interpreter().startHidden(in("outer.bat"));
    ASSERT_TRUE(eventually([&] { return exists("begun"); }));
    EXPECT_EQ(raisedBy([&] { return files.append(in("rec.html")); }), 70);
    ScriptedDesktop desktop;
    const auto fix = [&] { FixRelativePaths(definition, files, desktop, "", "rec.met"); };
    fix();
    ASSERT_THAT(desktop.messages, SizeIs(1));
    EXPECT_THAT(desktop.messages[0].text, HasSubstr("Number:            70\r\n"));
    EXPECT_EQ(get("rec.html"), before);
    EXPECT_FALSE(exists("tarnwick.tmp"));
    put("signal");
    ASSERT_TRUE(eventually([&] { return exists("ended"); }));
    desktop.messages.clear();
    fix();
    EXPECT_THAT(desktop.messages, IsEmpty());
    EXPECT_EQ(get("rec.html"), "HREF=\"rec.txt\"\r\n");
}

} // namespace
} // namespace tarnwick
