#include "common/write_behind.hpp"

#include <algorithm>
#include <system_error>
#include <utility>

namespace tarnwick {
namespace {

constexpr std::size_t megabyte = 1024UZ * 1024;
constexpr std::size_t worthAThread = 4 * megabyte;
constexpr std::size_t blockSize = megabyte;

} // namespace

WriteBehind::~WriteBehind() {
    endWriter();
}

void WriteBehind::write(std::string_view bytes) {
    if (!writer_.joinable() && (writtenHere_ < worthAThread || !startWriter())) {
        file_.write(bytes);
        writtenHere_ += bytes.size();
        return;
    }
    while (!bytes.empty()) {
        const auto count = std::min(bytes.size(), blockSize - gathered_.size());
        gathered_.append(bytes.substr(0, count));
        bytes.remove_prefix(count);
        if (gathered_.size() == blockSize) {
            handOver();
        }
    }
}

// False where the system has none to give: then it goes on as it began.
bool WriteBehind::startWriter() {
    try {
        gathered_.reserve(blockSize);
        block_.reserve(blockSize);
        writer_ = std::thread([this] { writeBlocks(); });
        return true;
    } catch (const std::system_error&) {
        return false;
    }
}

void WriteBehind::writeBlocks() {
    std::string mine;
    mine.reserve(blockSize);
    std::unique_lock lock(mutex_);
    while (true) {
        changed_.wait(lock, [this] { return ending_ || !block_.empty(); });
        if (block_.empty()) {
            return;
        }
        mine.swap(block_);
        atWork_ = true;
        changed_.notify_all();
        lock.unlock();
        std::exception_ptr error;
        try {
            file_.write(mine);
        } catch (...) {
            error = std::current_exception();
        }
        mine.clear();
        lock.lock();
        atWork_ = false;
        error_ = error;
        changed_.notify_all();
        if (error) {
            return;
        }
    }
}

void WriteBehind::handOver() {
    if (gathered_.empty()) {
        return;
    }
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return error_ || block_.empty(); });
    if (error_) {
        std::rethrow_exception(error_);
    }
    block_.swap(gathered_);
    changed_.notify_all();
}

// Returns when all that was given is with the file.
void WriteBehind::settle() {
    if (!writer_.joinable()) {
        return;
    }
    handOver();
    std::unique_lock lock(mutex_);
    changed_.wait(lock, [this] { return error_ || (block_.empty() && !atWork_); });
    if (error_) {
        std::rethrow_exception(error_);
    }
}

void WriteBehind::endWriter() {
    if (writer_.joinable()) {
        {
            const std::lock_guard lock(mutex_);
            ending_ = true;
            changed_.notify_all();
        }
        writer_.join();
    }
}

void WriteBehind::drain() {
    settle();
    file_.drain();
}

void WriteBehind::flush() {
    settle();
    file_.flush();
}

void WriteBehind::close() {
    settle();
    endWriter();
    file_.close();
}

} // namespace tarnwick
