#pragma once

#include "platform/files.hpp"

#include <condition_variable>
#include <cstddef>
#include <exception>
#include <mutex>
#include <string>
#include <string_view>
#include <thread>

namespace tarnwick {

// Writes much to a file while the caller goes on making more: behind the first 4 MB, large blocks
// are written by a thread of its own. Memory: two blocks of 1 MB. Refers to `file`, which is
// nobody else's until this is closed or gone, and must outlive it.
class WriteBehind final : public OutputFile {
  public:
    explicit WriteBehind(OutputFile& file) : file_(file) {}
    WriteBehind(const WriteBehind&) = delete;
    WriteBehind& operator=(const WriteBehind&) = delete;
    WriteBehind(WriteBehind&&) = delete;
    WriteBehind& operator=(WriteBehind&&) = delete;
    ~WriteBehind() override;

    // All of them raise what a write before could not do, too; nothing is written after that.
    void write(std::string_view bytes) override;
    void drain() override;
    void flush() override;
    void close() override;

  private:
    [[nodiscard]] bool startWriter();
    void writeBlocks();
    void handOver();
    void settle();
    void endWriter();

    OutputFile& file_;
    std::size_t writtenHere_ = 0;
    std::string gathered_;

    std::mutex mutex_; // of all below, but for the thread itself
    std::condition_variable changed_;
    std::string block_; // for the writer; empty: it may be given one
    bool atWork_ = false;
    bool ending_ = false;
    std::exception_ptr error_;
    std::thread writer_;
};

} // namespace tarnwick
