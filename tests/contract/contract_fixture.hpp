#pragma once

#include "contract/platform_under_test.hpp"
#include "support/file_bytes.hpp"
#include "support/raised_by.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <vector>

namespace tarnwick {

using Names = std::vector<std::string>;

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
