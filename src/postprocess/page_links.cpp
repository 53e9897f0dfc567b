#include "postprocess/page_links.hpp"

#include "common/text.hpp"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <span>
#include <utility>

namespace tarnwick {
namespace {

constexpr auto nowhere = std::string_view::npos;

constexpr auto endsLine = [](char character) noexcept {
    return character == '\n' || character == '\r';
};

// How much of `text`, from its front, is whole lines. (Between CR and LF is an empty line: there
// is nothing in it to change.)
std::size_t wholeLines(std::string_view text) {
    const auto last = std::ranges::find_if(text.rbegin(), text.rend(), endsLine);
    return static_cast<std::size_t>(text.rend() - last);
}

// Where the line that holds that place ends.
std::size_t endOfLine(std::string_view text, std::size_t at) {
    const auto rest = text.substr(at);
    const auto line = rest.substr(0, rest.find('\n'));
    return at + std::min(line.find('\r'), line.size());
}

std::string_view commonBeginning(std::string_view left, std::string_view right) {
    return left.substr(
        0, static_cast<std::size_t>(std::ranges::mismatch(left, right).in1 - left.begin()));
}

// What each of the paths holds, so that a line without it needs no change: the beginning that they
// have in common, or that of their file names, which is the record's name. The longer one is the
// rarer one; it may be empty.
std::string heldByAllPaths(const PageRule& rule) {
    constexpr auto fileName = [](std::string_view path) {
        return path.substr(path.find_last_of("\\/") + 1);
    };
    std::string_view beginning = rule.ownPath;
    std::string_view ofName = fileName(rule.ownPath);
    for (const PageRule::Link& link : rule.links) {
        std::string_view path = link.from;
        path.remove_prefix(linkMarker.size());
        path.remove_suffix(1); // the quotation mark
        beginning = commonBeginning(beginning, path);
        ofName = commonBeginning(ofName, fileName(path));
    }
    return std::string(beginning.size() < ofName.size() ? ofName : beginning);
}

// Bytes that nobody has set, for reading into.
class Block {
  public:
    explicit Block(std::size_t size)
        : bytes_(std::make_unique_for_overwrite<char[]>(size)), size_(size) {}
    [[nodiscard]] std::span<char> all() const noexcept { return {bytes_.get(), size_}; }

  private:
    std::unique_ptr<char[]> bytes_;
    std::size_t size_;
};

// Gives a file's bytes in large pieces, none of which ends within a line.
class LineBlocks {
  public:
    explicit LineBlocks(InputFile& file) : file_(file) {}

    // The next piece; empty at the end of the file. It holds until the next call.
    std::string_view next() {
        forgetGiven();
        bool more = true;
        while (given_ == 0 && more) {
            more = readOn();
        }
        return {block_.all().data(), given_};
    }

  private:
    // What is kept is the beginning of a line; it moves to the front.
    void forgetGiven() {
        filled_ -= given_;
        std::ranges::copy(block_.all().subspan(std::exchange(given_, 0), filled_),
                          block_.all().begin());
    }

    // Up to the end of the last whole line that was read can be given, or all at the end of the
    // file. False there.
    bool readOn() {
        if (filled_ == block_.all().size()) {
            grow();
        }
        const auto room = block_.all().subspan(filled_);
        const auto count = file_.read(room);
        const auto lines = wholeLines({room.data(), count});
        if (lines > 0 || count == 0) {
            given_ = filled_ + lines;
        }
        filled_ += count;
        return count > 0;
    }

    // For a line that is longer than the block.
    void grow() {
        Block larger(2 * filled_);
        std::ranges::copy(block_.all(), larger.all().begin());
        block_ = std::move(larger);
    }

    static constexpr std::size_t blockSize = 64UZ * 1024;

    InputFile& file_;
    Block block_{blockSize};
    std::size_t filled_ = 0;
    std::size_t given_ = 0; // the front of it, which the caller is done with
};

} // namespace

void rewriteLine(std::string& line, const PageRule& rule) {
    // Every link begins with the marker, also one that was put in: so none begins before the first.
    const auto first = line.find(linkMarker);
    for (const auto& [from, to] : rule.links) {
        if (const auto at = line.find(from, first); at != nowhere) {
            line.replace(at, from.size(), to);
        }
    }
    constexpr std::string_view baseMarker = "<base href";
    if (equalIgnoringCase(trim(line).substr(0, baseMarker.size()), baseMarker)) {
        if (const auto at = line.rfind(rule.ownPath); at != nowhere) {
            line.replace(at, rule.ownPath.size(), rule.ownName);
        }
    }
}

void rewriteLinks(InputFile& page, OutputFile& copy, const PageRule& rule) {
    const std::string needle = heldByAllPaths(rule);
    LineBlocks blocks(page);
    std::string line;
    for (auto text = blocks.next(); !text.empty(); text = blocks.next()) {
        // Most lines hold none of the paths, and are never looked at one by one.
        std::size_t copied = 0;
        for (auto at = text.find(needle); at != nowhere;) {
            const auto begin = wholeLines(text.substr(0, at));
            const auto end = endOfLine(text, at);
            line.assign(text.substr(begin, end - begin));
            rewriteLine(line, rule);
            copy.write(text.substr(copied, begin - copied));
            copy.write(line);
            copied = end;
            at = text.find(needle, end + 1);
        }
        copy.write(text.substr(copied));
    }
}

} // namespace tarnwick
