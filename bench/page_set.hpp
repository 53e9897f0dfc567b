#pragma once

#include "definition/batch_definition.hpp"

#include <cstddef>
#include <filesystem>
#include <string>
#include <vector>

namespace tarnwick {

// Pages such as MP leaves them, in a drives root of their own, which is removed at the end: for
// each record an HTML page in C:\out\html and a FAQ page in C:\out\faq, or, for a single page, only
// the former. One line in 24 is a link to one of the record's other outputs, one in 24 a link
// elsewhere, and each page has a base line; the rest is text and tags. They lie in the folder that
// TMPDIR names; else in memory where that is large enough, or in the system's temporary folder.
class PageSet {
  public:
    // `pages` pages of about `pageSize` bytes each.
    PageSet(int pages, std::size_t pageSize);
    PageSet(const PageSet&) = delete;
    PageSet& operator=(const PageSet&) = delete;
    ~PageSet();

    [[nodiscard]] std::string drivesRoot() const { return root_.string(); }
    [[nodiscard]] const std::vector<std::string>& records() const { return records_; }
    [[nodiscard]] BatchDefinition definition() const;

    // Returns when all that was written is on the medium and disturbs no measuring any more.
    void settle() const;

    // The untouched pages; where they are to be copied for our program; where for the rival.
    [[nodiscard]] std::filesystem::path originals() const { return root_ / "originals"; }
    [[nodiscard]] std::filesystem::path ours() const { return root_ / "c/out"; }
    [[nodiscard]] std::filesystem::path rivals() const { return root_ / "rivals"; }

    // sed's command that makes the same changes to all the rival's pages in place.
    [[nodiscard]] std::vector<std::string> sedCommand(const std::string& locale) const;

    // Whether both have made the same bytes of the originals, and others than those.
    [[nodiscard]] bool sameResults() const;

  private:
    std::filesystem::path root_;
    bool single_;
    std::vector<std::string> records_;         // file names
    std::vector<std::filesystem::path> pages_; // relative
};

} // namespace tarnwick
