#pragma once

#include "contract/platform_under_test.hpp"
#include "platform/run_time_error.hpp"
#include "support/file_bytes.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

using Names = std::vector<std::string>;

// The number of the error that `call` raises; 0 when it raises none.
template <typename Call>
std::int32_t raisedBy(Call&& call) {
    try {
        static_cast<void>(static_cast<Call&&>(call)());
    } catch (const RunTimeError& error) {
        return error.record().number;
    }
    return 0;
}

class ContractTest : public testing::Test {
  protected:
    [[nodiscard]] std::string in(std::string_view name) const {
        return platform->scratch() + '\\' + std::string(name);
    }
    void put(std::string_view name, std::string_view bytes = "") {
        putBytes(files, in(name), bytes);
    }
    [[nodiscard]] std::string get(std::string_view name) const { return bytesOf(files, in(name)); }
    [[nodiscard]] bool exists(std::string_view name) const {
        return !files.firstNormalFile(in(name)).empty();
    }

    std::unique_ptr<PlatformUnderTest> platform = makePlatformUnderTest();
    Files& files = platform->files();
};

} // namespace tarnwick
