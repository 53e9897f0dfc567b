// What many input files cost: counted, not timed.
#include "unit/ui/forms/recording_view.hpp"
#include "unit/ui/main/main_world.hpp"

#include <algorithm>
#include <cstdint>

namespace tarnwick {
namespace {

std::uint64_t& branchesTaken() {
    static std::uint64_t count = 0;
    return count;
}

} // namespace
} // namespace tarnwick

// Called at every branch of the sources that are compiled for being counted. The compiler's own
// name. NOLINTNEXTLINE(bugprone-reserved-identifier,cert-dcl37-c,cert-dcl51-cpp)
extern "C" void __sanitizer_cov_trace_pc() {
    ++tarnwick::branchesTaken();
}

namespace tarnwick {
namespace {

// A folder with very many files, without the files.
class HugeFolder : public ForwardingFiles {
  public:
    HugeFolder(Files& files, int count) : ForwardingFiles(files) {
        for (int i = 0; i < count; ++i) {
            std::string number = std::to_string(i);
            names.push_back("r" + std::string(6 - number.size(), '0') + number + ".met");
        }
    }
    [[nodiscard]] Listing listFiles(std::string_view, std::string_view) const override {
        ++timesListed;
        return {.names = names, .leftOut = {}};
    }
    std::vector<std::string> names;
    mutable int timesListed = 0;
};

struct LongLists : MainWorld {
    // Of listing so many files, moving every other one, listing again, and moving all of them there
    // and back.
    std::uint64_t branchesFor(int count) {
        HugeFolder huge(files, count);
        MainServices hugeServices{.files = huge,
                                  .desktop = desktop,
                                  .interpreter = interpreter,
                                  .events = events,
                                  .clock = clock,
                                  .process = process,
                                  .settings = settings};
        frmMain window(hugeServices);
        RecordingView available;
        RecordingView selected;
        window.lstAvailable.attach(available);
        window.lstSelected.attach(selected);
        window.show();
        const std::uint64_t before = branchesTaken();
        work(window);
        const std::uint64_t taken = branchesTaken() - before;
        EXPECT_TRUE(std::ranges::equal(window.lstAvailable.items(), huge.names));
        EXPECT_EQ(huge.timesListed, 2);
        // Shown anew as a whole: by each listing (which first empties the list), by each move.
        EXPECT_EQ(std::ranges::count(available.told, Property::Items), 1 + 1 + 2 + 1 + 1);
        EXPECT_EQ(std::ranges::count(selected.told, Property::Items), 0 + 1 + 0 + 1 + 1);
        window.lstAvailable.detach();
        window.lstSelected.detach();
        return taken;
    }

  private:
    void work(frmMain& window) {
        window.userMovedFocus(window.txtInput);
        window.txtInput.userTyped(R"(D:\in)");
        window.userMovedFocus(window.chkMP);
        const int count = static_cast<int>(window.lstAvailable.items().size());
        std::vector<int> half;
        for (int i = 0; i < count; i += 2) {
            half.push_back(i);
        }
        window.lstAvailable.userSelected(half);
        window.cmdSelectFiles_Click(1);
        window.userMovedFocus(window.txtInExt);
        window.txtInExt.userTyped("*");
        window.userMovedFocus(window.chkMP);
        EXPECT_EQ(window.lstAvailable.items().size(), half.size());
        EXPECT_EQ(window.lstSelected.items().size(), half.size());
        window.cmdSelectFiles_Click(2);
        EXPECT_EQ(window.lstSelected.items().size(), static_cast<std::size_t>(count));
        window.cmdSelectFiles_Click(4);
    }
};

TEST_F(LongLists, Ten_times_the_files_are_listed_matched_and_moved_with_ten_times_the_work) {
    const std::uint64_t few = branchesFor(1'000);
    const std::uint64_t many = branchesFor(10'000);
    EXPECT_GT(few, 100'000U); // they are counted
    EXPECT_LT(many, 12 * few) << "all with all would be a hundred times";
}

} // namespace
} // namespace tarnwick
