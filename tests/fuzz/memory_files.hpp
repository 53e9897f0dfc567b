#pragma once

#include "platform/files.hpp"

#include <algorithm>
#include <memory>
#include <span>
#include <string>
#include <string_view>
#include <utility>

namespace tarnwick {

// Gives its text in small pieces of changing lengths, so that every boundary falls everywhere.
class MemoryInput : public InputFile {
  public:
    explicit MemoryInput(std::string_view text) : rest_(text), piece_(1 + text.size() % 13) {}

    std::size_t read(std::span<char> buffer) override {
        piece_ = 1 + piece_ * 5 % 4099;
        const auto count = std::min({buffer.size(), rest_.size(), piece_});
        std::ranges::copy(rest_.substr(0, count), buffer.begin());
        rest_.remove_prefix(count);
        return count;
    }

  private:
    std::string_view rest_;
    std::size_t piece_;
};

// Keeps what is written.
class MemoryOutput : public OutputFile {
  public:
    void write(std::string_view bytes) override { text.append(bytes); }
    void drain() override {}
    void flush() override {}
    void close() override {}

    std::string text;
};

// A file system of one file, `text`, which every path names. A file or folder exists where its path
// has no "!". What would change anything is not asked for.
class MemoryFiles : public Files {
  public:
    explicit MemoryFiles(std::string_view text) : text_(text) {}

    [[nodiscard]] bool canListFolder(std::string_view folder) const override {
        return !folder.contains('!');
    }
    [[nodiscard]] std::string firstNormalFile(std::string_view path) const override {
        return path.contains('!') ? std::string() : "file";
    }
    [[nodiscard]] std::string currentFolder() const override { return "C:\\current"; }
    [[nodiscard]] std::unique_ptr<InputFile>
    openForReading(std::string_view /*path*/) const override {
        return std::make_unique<MemoryInput>(text_);
    }

    [[nodiscard]] Listing listFiles(std::string_view /*folder*/,
                                    std::string_view /*patterns*/) const override {
        std::abort();
    }
    [[nodiscard]] Listing listFolders(std::string_view /*folder*/) const override { std::abort(); }
    [[nodiscard]] std::vector<std::string> drives() const override { std::abort(); }
    [[nodiscard]] std::string shortPath(std::string_view /*path*/) const override { std::abort(); }
    [[nodiscard]] std::unique_ptr<OutputFile> create(std::string_view /*path*/) override {
        std::abort();
    }
    [[nodiscard]] std::unique_ptr<OutputFile> createNew(std::string_view /*path*/) override {
        std::abort();
    }
    [[nodiscard]] std::unique_ptr<OutputFile> append(std::string_view /*path*/) override {
        std::abort();
    }
    void remove(std::string_view /*path*/) override { std::abort(); }
    void createFolder(std::string_view /*path*/) override { std::abort(); }
    void moveOver(std::string_view /*from*/, std::string_view /*to*/) override { std::abort(); }
    void replace(std::string_view /*from*/, std::string_view /*to*/) override { std::abort(); }

  private:
    std::string_view text_;
};

} // namespace tarnwick
