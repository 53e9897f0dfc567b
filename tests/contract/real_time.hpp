#pragma once

#include "contract/platform_under_test.hpp"

#include <chrono>
#include <thread>
#include <utility>

namespace tarnwick {

// A platform where time goes by itself.
class PlatformInRealTime : public PlatformUnderTest {
  public:
    void letPass(double seconds) override {
        std::this_thread::sleep_for(std::chrono::duration<double>(seconds));
    }
    void postDuring(std::function<void()> event, const std::function<void()>& wait) override {
        std::thread other([this, &event] {
            letPass(0.1); // by then it waits; where the machine is busy, it finds the event there
            post(std::move(event));
        });
        wait();
        other.join();
    }
};

} // namespace tarnwick
