#pragma once

#include <chrono>
#include <condition_variable>
#include <deque>
#include <mutex>
#include <optional>
#include <utility>

namespace tarnwick {

// Messages from many threads to one, which sleeps until there is one.
template <typename Message>
class Inbox {
  public:
    void put(Message message) {
        {
            const std::scoped_lock lock(mutex_);
            messages_.push_back(std::move(message));
        }
        waiting_.notify_one();
    }

    // The oldest; nothing when none has come for so many seconds.
    [[nodiscard]] std::optional<Message> take(double seconds) {
        std::unique_lock lock(mutex_);
        if (!waiting_.wait_for(lock, std::chrono::duration<double>(seconds),
                               [&] { return !messages_.empty(); })) {
            return std::nullopt;
        }
        std::optional<Message> message(std::move(messages_.front()));
        messages_.pop_front();
        return message;
    }

  private:
    std::mutex mutex_;
    std::condition_variable waiting_;
    std::deque<Message> messages_;
};

} // namespace tarnwick
