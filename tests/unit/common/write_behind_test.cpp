#include "common/write_behind.hpp"
#include "platform/run_time_error.hpp"

#include <gtest/gtest.h>

#include <string>
#include <string_view>
#include <thread>

namespace tarnwick {
namespace {

constexpr std::size_t megabyte = 1024UZ * 1024;

// Holds what it is given, and raises 61 for what is more than `room`.
class Sink : public OutputFile {
  public:
    explicit Sink(std::size_t room = std::string::npos) : room_(room) {}
    void write(std::string_view bytes) override {
        writers_ += std::this_thread::get_id() == caller_ ? 0 : 1;
        if (text.size() + bytes.size() > room_) {
            ++refused;
            throw RunTimeError(ErrorNumber::DiskFull);
        }
        text += bytes;
    }
    void drain() override { atDrain = text.size(); }
    void flush() override { atFlush = text.size(); }
    void close() override { atClose = text.size(); }
    [[nodiscard]] int byAnotherThread() const { return writers_; }

    std::string text;
    int refused = 0;
    std::size_t atDrain = 0;
    std::size_t atFlush = 0;
    std::size_t atClose = 0;

  private:
    std::size_t room_;
    std::thread::id caller_ = std::this_thread::get_id();
    int writers_ = 0;
};

std::string pieceAt(std::size_t place) {
    return std::to_string(place) + std::string(1000 + place % 4000, 'x') + '\n';
}

// So many bytes at least, in pieces of several lengths; what they are together.
std::string writeMuch(OutputFile& file, std::size_t length) {
    std::string all;
    while (all.size() < length) {
        const auto piece = pieceAt(all.size());
        file.write(piece);
        all += piece;
    }
    return all;
}

TEST(WriteBehind, What_is_not_much_is_written_at_once_by_the_caller) {
    Sink sink;
    WriteBehind file(sink);
    const auto all = writeMuch(file, 3 * megabyte);
    EXPECT_TRUE(sink.text == all);
    file.close();
    EXPECT_EQ(sink.byAnotherThread(), 0);
    EXPECT_EQ(sink.atClose, all.size());
}

TEST(WriteBehind, Much_arrives_whole_and_in_order_by_another_thread) {
    Sink sink;
    WriteBehind file(sink);
    const auto all = writeMuch(file, 20 * megabyte);
    file.close();
    EXPECT_TRUE(sink.text == all);
    EXPECT_EQ(sink.atClose, all.size());
    EXPECT_GE(sink.byAnotherThread(), 15);
}

TEST(WriteBehind, All_of_it_is_with_the_file_when_it_is_drained_or_flushed) {
    Sink sink;
    WriteBehind file(sink);
    auto all = writeMuch(file, 6 * megabyte);
    file.drain();
    EXPECT_EQ(sink.atDrain, all.size());
    all += writeMuch(file, 2 * megabyte);
    file.flush();
    EXPECT_EQ(sink.atFlush, all.size());
    file.close();
    EXPECT_TRUE(sink.text == all);
}

TEST(WriteBehind, What_cannot_be_written_is_raised_and_nothing_is_written_after_it) {
    Sink sink(8 * megabyte);
    WriteBehind file(sink);
    EXPECT_THROW(writeMuch(file, 20 * megabyte), RunTimeError);
    EXPECT_THROW(file.drain(), RunTimeError);
    EXPECT_THROW(file.close(), RunTimeError);
    EXPECT_EQ(sink.refused, 1);
    EXPECT_LE(sink.text.size(), 8 * megabyte);
    EXPECT_EQ(sink.atClose, 0U);
}

TEST(WriteBehind, What_cannot_be_written_last_is_raised_by_close) {
    Sink sink(5 * megabyte);
    WriteBehind file(sink);
    writeMuch(file, 5 * megabyte + 1); // in one block with what stands before it
    EXPECT_THROW(file.close(), RunTimeError);
    EXPECT_EQ(sink.atClose, 0U);
}

TEST(WriteBehind, Who_gives_up_waits_for_nobody_for_long) {
    Sink sink;
    {
        WriteBehind file(sink);
        writeMuch(file, 6 * megabyte);
    }
    EXPECT_EQ(sink.atClose, 0U); // it was never closed
}

} // namespace
} // namespace tarnwick
