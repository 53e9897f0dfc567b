#include "runner/slots.hpp"

#include <utility>

namespace tarnwick {

Slots::Slots(std::size_t count, Work work) : work_(std::move(work)) {
    threads_.reserve(count);
    for (std::size_t slot = 0; slot < count; ++slot) {
        threads_.emplace_back([this, slot] { serve(slot); });
    }
}

Slots::~Slots() {
    {
        const std::scoped_lock lock(mutex_);
        pieces_.clear();
        closed_ = true;
    }
    waiting_.notify_all();
    threads_.clear();
}

void Slots::give(std::uint32_t piece) {
    {
        const std::scoped_lock lock(mutex_);
        pieces_.push_back(piece);
    }
    waiting_.notify_one();
}

std::size_t Slots::drop() {
    const std::scoped_lock lock(mutex_);
    const auto count = pieces_.size();
    pieces_.clear();
    return count;
}

void Slots::serve(std::size_t slot) {
    for (;;) {
        std::uint32_t piece = 0;
        {
            std::unique_lock lock(mutex_);
            waiting_.wait(lock, [&] { return closed_ || !pieces_.empty(); });
            if (pieces_.empty()) {
                return;
            }
            piece = pieces_.front();
            pieces_.pop_front();
        }
        work_(slot, piece);
    }
}

} // namespace tarnwick
