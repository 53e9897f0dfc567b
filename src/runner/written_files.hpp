#pragma once

#include "platform/file_stamps.hpp"
#include "platform/files.hpp"
#include "runner/products.hpp"
#include "runner/run_clock.hpp"

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace tarnwick {

// Tells whether a call of a tool wrote a product, as far as the file system's times can tell. They
// may be as coarse as two seconds, and the file system's clock may be another than ours.
class WrittenFiles {
  public:
    // Makes and removes a file named `probe` in each folder of `products`: this shows whether
    // products can be made there, and what time the file system has. No other runner may use that
    // name. Refers to `clock`.
    WrittenFiles(const Products& products, Files& files, const FileStamps& stamps,
                 const RunClock& clock, const std::string& probe);

    // Of the folders where nothing can be made, a sentence each.
    [[nodiscard]] const std::vector<std::string>& faults() const noexcept { return faults_; }

    // False where it is certain that the file of the kind in that place of Products::kinds, which
    // had the stamp `before` before the call and has `after` now, was not written in between.
    [[nodiscard]] bool mayBeWritten(std::size_t kind, const std::optional<Stamp>& before,
                                    const Stamp& after) const;

  private:
    const RunClock& clock_;
    // For each kind, by how many nanoseconds the file system's clock is ahead of ours.
    std::vector<std::int64_t> ahead_;
    std::vector<std::string> faults_;
};

} // namespace tarnwick
