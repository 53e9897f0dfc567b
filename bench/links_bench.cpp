// Measures the rewriting of links in pages against sed doing the same replacements in place and
// against a plain copy of the same pages by cp: in rounds in which each has its turn, every one as
// a process of its own.

#include "child_run.hpp"
#include "page_set.hpp"
#include "platform/posix/posix_files.hpp"
#include "postprocess/relative_links.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <cstdlib>
#include <filesystem>
#include <iostream>
#include <string>
#include <thread>
#include <vector>

namespace tarnwick {
namespace {

namespace fs = std::filesystem;

// By so many slots at a time, as tarnwick-run does it.
void rewriteAll(const PageSet& pages, std::size_t slots) {
    PosixFiles files(Mounts::below(pages.drivesRoot()));
    const BatchDefinition definition = pages.definition();
    const auto rewriteEveryOther = [&](std::size_t slot) {
        KnownFolders folders(files);
        const std::string temporary = "C:\\in\\slot" + std::to_string(slot);
        for (std::size_t at = slot; at < pages.records().size(); at += slots) {
            static_cast<void>(rewriteRecordLinks(definition, files, folders, WindowsToolPaths(),
                                                 pages.records()[at], temporary));
        }
    };
    std::vector<std::jthread> others;
    for (std::size_t slot = 1; slot < slots; ++slot) {
        others.emplace_back(rewriteEveryOther, slot);
    }
    rewriteEveryOther(0);
}

// Puts untouched pages into `folder`, in the place of what is there.
Cost copyPages(const PageSet& pages, const fs::path& folder) {
    fs::remove_all(folder);
    pages.settle();
    return costOf({"cp", "-r", pages.originals().string(), folder.string()});
}

double median(std::vector<double> values) {
    std::ranges::sort(values);
    return values.at(values.size() / 2);
}

constexpr std::array<const char*, 2> locales{"C", "C.UTF-8"};

struct Figures {
    std::vector<double> ours;
    std::array<std::vector<double>, locales.size()> sed;
    std::vector<double> cp;
    long peakKilobytes = 0;
};

Figures measure(const PageSet& pages, std::size_t slots, int rounds) {
    Figures figures;
    for (int round = 0; round < rounds; ++round) {
        figures.cp.push_back(copyPages(pages, pages.ours()).seconds);
        pages.settle();
        const Cost ours = costOf([&] { rewriteAll(pages, slots); });
        figures.ours.push_back(ours.seconds);
        figures.peakKilobytes = std::max(figures.peakKilobytes, ours.peakKilobytes);
        for (std::size_t i = 0; i < locales.size(); ++i) {
            figures.cp.push_back(copyPages(pages, pages.rivals()).seconds);
            pages.settle();
            figures.sed.at(i).push_back(costOf(pages.sedCommand(locales.at(i))).seconds);
            if (!pages.sameResults()) {
                std::cerr << "The two programs write different pages.\n";
                std::exit(1); // NOLINT(concurrency-mt-unsafe)
            }
        }
    }
    return figures;
}

struct Limits {
    const char* overSed; // at least
    const char* overCp;  // at most
};

long measureAndPrint(const char* what, const PageSet& pages, std::size_t slots, int rounds,
                     const Limits& limits) {
    const Figures figures = measure(pages, slots, rounds);
    const double ours = median(figures.ours);
    const double sed = std::min(median(figures.sed[0]), median(figures.sed[1]));
    const double cp = median(figures.cp);
    std::printf("%s in %s (medians of %d rounds)\n", what, pages.drivesRoot().c_str(), rounds);
    std::printf("  rewriting links %6.2f s\n", ours);
    for (std::size_t i = 0; i < locales.size(); ++i) {
        std::printf("  sed, %-10s %6.2f s\n", locales.at(i), median(figures.sed.at(i)));
    }
    std::printf("  cp              %6.2f s\n", cp);
    std::printf("  faster sed / rewriting links: %5.2f (at least %s)\n", sed / ours,
                limits.overSed);
    std::printf("  rewriting links / cp:         %5.2f (at most %s)\n", ours / cp, limits.overCp);
    static_cast<void>(std::fflush(stdout));
    return figures.peakKilobytes;
}

long peakOfOnePage(std::size_t size) {
    const PageSet page(1, size);
    static_cast<void>(copyPages(page, page.ours()));
    return costOf([&] { rewriteAll(page, 1); }).peakKilobytes;
}

int run() {
    constexpr std::size_t megabyte = 1'000'000;
    const long ofSmall = peakOfOnePage(5 * megabyte);
    const long ofLarge = measureAndPrint("one page of 500 MB", PageSet(1, 500 * megabyte), 1, 5,
                                         {.overSed = "3", .overCp = "1.5"});
    const long ofMany = measureAndPrint("20,000 pages of 20 KB, two slots", PageSet(20'000, 20'000),
                                        2, 3, {.overSed = "1", .overCp = "1.3"});
    std::printf("peak memory: %ld KB for a page of 5 MB, %ld KB for one of 500 MB (the same), "
                "%ld KB for 20,000 pages\n",
                ofSmall, ofLarge, ofMany);
    return 0;
}

} // namespace
} // namespace tarnwick

int main() {
    return tarnwick::run();
}
