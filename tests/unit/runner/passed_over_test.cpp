#include "runner/passed_over.hpp"
#include "unit/runner/runner_world.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace tarnwick {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

// What the reader passes over shows in the window; a run without one has to say it.
class PassedOver : public testing::Test {
  protected:
    std::vector<PassedOverEntry> read(std::string_view text) {
        return readDefinition(machine.definition, machine.world.files(), text);
    }

    RunnerWorld machine;
};

TEST_F(PassedOver, Outputs_whose_folders_are_not_there_are_told) {
    const auto entries = read("Process MP=1\r\nGRID_Html=C:\\gone\r\nGRID_Error=C:\\out\r\n"
                              "grid_XML = Q:\\away \nGRID_Info_file=C:\\gone\r\nGRID_Text=\r\n"
                              "GRID_Nonsense=C:\\gone");
    EXPECT_THAT(
        remarksOn(entries, machine.definition),
        ElementsAre("The folder \"C:\\gone\" does not exist: the output \"Html\" is not made.",
                    "The folder \"Q:\\away\" does not exist: the output \"XML\" is not made."));
}

TEST_F(PassedOver, Files_that_are_not_there_are_told) {
    const auto entries = read("Aliases File=C:\\gone.txt\r\nConfiguration File=C:\\gone.cfg\r\n");
    EXPECT_THAT(remarksOn(entries, machine.definition),
                ElementsAre("The aliases file \"C:\\gone.txt\" does not exist and is not used.",
                            "The configuration file \"C:\\gone.cfg\" does not exist and is not "
                            "used."));
    EXPECT_THAT(read("Aliases File=\r\nConfiguration File= \r\n"), IsEmpty());
}

TEST_F(PassedOver, An_input_folder_that_is_not_there_is_named) {
    machine.definition.sInputFolder.clear();
    machine.request.job.passedOver = read("Process MP=1\r\nINPUT FOLDER= C:\\gone \r\n");
    EXPECT_EQ(machine.run(), ExitStatus::NothingRun);
    EXPECT_THAT(machine.terminal.error,
                testing::HasSubstr("The input folder \"C:\\gone\" does not exist."));
}

TEST_F(PassedOver, Drives_of_tools_and_of_what_is_missing_are_known_once_each) {
    const auto entries = read(
        "MP EXECUTABLE=T:\\mp.exe\r\nCNS EXECUTABLE=relative\\cns.exe\r\n"
        "GRID_Html=T:\\x\r\nGRID_Text=U:\\\r\nGRID_Faq=gone\r\nGRID_Xml=\\\\server\\share\r\n");
    EXPECT_THAT(drivesNamed(machine.definition, entries), ElementsAre("T:", "U:"));
}

} // namespace
} // namespace tarnwick
