#include "unit/faults/every_step.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <map>
#include <optional>
#include <set>
#include <utility>

namespace tarnwick {

class StepFiles::Plan : public Observer {
  public:
    void beforeCall(FileOperation operation, std::string_view path) override {
        const std::size_t number = calls.size();
        calls.push_back({.operation = operation, .path = std::string(path)});
        if (number == brokenCall) {
            throw RunTimeError(error);
        }
    }
    std::size_t room(std::size_t length) override {
        if (!calls.back().path.starts_with(volume)) { // of the call that is under way
            return length;
        }
        const std::size_t count = std::min(length, freeBytes.value_or(length));
        if (freeBytes) {
            *freeBytes -= count;
        }
        bytes += count;
        return count;
    }
    void afterShortWrite() override { throw RunTimeError(ErrorNumber::DiskFull); }

    std::vector<Call> calls;
    std::size_t bytes = 0;
    std::optional<std::size_t> brokenCall;
    ErrorNumber error = ErrorNumber::DeviceIO;
    std::optional<std::size_t> freeBytes;
    std::string volume;
};

StepFiles::StepFiles(Files& files) : StepFiles(files, std::make_shared<Plan>()) {}

StepFiles::StepFiles(Files& files, std::shared_ptr<Plan> plan)
    : WatchedFiles(files, plan), plan_(std::move(plan)) {}

void StepFiles::count(std::string_view volume) {
    *plan_ = Plan();
    plan_->volume = volume;
}

void StepFiles::breakCall(std::size_t number, ErrorNumber error) {
    count();
    plan_->brokenCall = number;
    plan_->error = error;
}

void StepFiles::fillDiskAfter(std::size_t bytes, std::string_view volume) {
    count(volume);
    plan_->freeBytes = bytes;
}

const std::vector<StepFiles::Call>& StepFiles::calls() const noexcept {
    return plan_->calls;
}

std::size_t StepFiles::bytesWritten() const noexcept {
    return plan_->bytes;
}

namespace {

using Snapshot = std::map<std::string, std::string>; // contents by paths

Snapshot snapshotOf(const HostedWorld& world) {
    Snapshot snapshot;
    for (const auto& entry : std::filesystem::recursive_directory_iterator(world.drivesRoot())) {
        if (entry.is_regular_file()) {
            std::ifstream file(entry.path(), std::ios::binary);
            snapshot.emplace(entry.path().string().substr(world.drivesRoot().size()),
                             std::string(std::istreambuf_iterator<char>(file), {}));
        }
    }
    return snapshot;
}

// What a use case leaves.
struct Result {
    Snapshot files;
    std::string state;
    std::vector<Message> messages;

    bool operator==(const Result&) const = default;
};

Result doIt(UseCase& useCase) {
    useCase.desktop.messages.clear();
    useCase.act();
    return {.files = snapshotOf(useCase.world),
            .state = useCase.state(),
            .messages = useCase.desktop.messages};
}

// What is found where nothing breaks.
struct Undisturbed {
    Snapshot before;
    std::string stateBefore;
    Result once;
    Result twice;
    std::vector<StepFiles::Call> calls;
    std::size_t bytes = 0;
};

Undisturbed undisturbed(const MakeUseCase& make, std::string_view volume = {}) {
    Undisturbed found;
    const auto useCase = make();
    found.before = snapshotOf(useCase->world);
    found.stateBefore = useCase->state();
    useCase->files.count(volume);
    found.once = doIt(*useCase);
    found.calls = useCase->files.calls();
    found.bytes = useCase->files.bytesWritten();
    found.twice = doIt(*useCase);
    return found;
}

bool holds(const Snapshot& snapshot, const std::pair<const std::string, std::string>& file) {
    const auto found = snapshot.find(file.first);
    return found != snapshot.end() && found->second == file.second;
}

bool mayEndEarly(const UseCase& useCase, const Undisturbed& usual,
                 const std::pair<const std::string, std::string>& file) {
    const auto whole = usual.once.files.find(file.first);
    return std::ranges::find(useCase.writtenInPlace, file.first) != useCase.writtenInPlace.end() &&
           whole != usual.once.files.end() && whole->second.starts_with(file.second);
}

bool isWhole(const UseCase& useCase, const Undisturbed& usual,
             const std::pair<const std::string, std::string>& file) {
    const std::pair<std::string, std::string> asGiven(file);
    return holds(usual.before, file) || holds(usual.once.files, file) ||
           mayEndEarly(useCase, usual, file) ||
           std::ranges::find(useCase.alsoWhole, asGiven) != useCase.alsoWhole.end();
}

void expectNothingHalf(const UseCase& useCase, const Undisturbed& usual, const Result& result,
                       const Result& again) {
    for (const auto& file : usual.before) {
        const bool gone = !result.files.contains(file.first);
        EXPECT_TRUE(!gone || !usual.once.files.contains(file.first)) << "lost: " << file.first;
    }
    for (const auto& file : result.files) {
        EXPECT_TRUE(isWhole(useCase, usual, file) || !again.files.contains(file.first))
            << "half: " << file.first << ":\n"
            << file.second;
    }
}

void expectNoHalfState(const Undisturbed& usual, const Result& result) {
    EXPECT_THAT(result.state, testing::AnyOf(usual.stateBefore, usual.once.state));
}

// Of files that a step then wrongly takes for missing, or for there.
void expectNoStrayName(const Undisturbed& usual, const Result& result, const Result& again) {
    for (const auto& file : result.files) {
        EXPECT_TRUE(usual.before.contains(file.first) || usual.once.files.contains(file.first) ||
                    !again.files.contains(file.first))
            << "left over: " << file.first;
    }
}

std::vector<std::string> told(const Undisturbed& usual, const Result& result) {
    std::vector<std::string> texts;
    for (const Message& message : result.messages) {
        if (std::ranges::find(usual.once.messages, message) == usual.once.messages.end()) {
            texts.push_back(message.text);
        }
    }
    return texts;
}

void expectNothingTwice(const Result& result) {
    std::set<std::string> different;
    for (const Message& message : result.messages) {
        different.insert(message.text);
    }
    EXPECT_EQ(different.size(), result.messages.size()) << "a message was shown twice";
}

// What the next time clears away need not be told.
void expectTold(const Undisturbed& usual, Result result, const Result& again,
                std::size_t mostReports) {
    std::erase_if(result.files, [&](const auto& file) {
        return !usual.once.files.contains(file.first) && !again.files.contains(file.first);
    });
    const std::vector<std::string> messages = told(usual, result);
    const bool asAlways = result.files == usual.once.files && result.state == usual.once.state;
    EXPECT_LE(messages.size(), mostReports) << testing::PrintToString(messages);
    EXPECT_TRUE(asAlways || !messages.empty()) << "nobody was told";
}

void expectAsAlways(const Undisturbed& usual, const Result& again) {
    if (again != usual.once && again != usual.twice) {
        EXPECT_EQ(again.files, usual.twice.files);
        EXPECT_EQ(again.state, usual.twice.state);
        EXPECT_EQ(again.messages, usual.twice.messages);
    }
}

struct Fault {
    std::function<void(StepFiles&)> apply;
    bool answer = false; // to what the use case asks; what it then does is its own rule
    bool lasts = false;
};

void tryBroken(const Undisturbed& usual, const MakeUseCase& make, const Fault& fault) {
    const auto useCase = make();
    fault.apply(useCase->files);
    const Result result = doIt(*useCase);
    useCase->files.count();
    const Result again = doIt(*useCase);
    expectNothingTwice(result);
    expectNoStrayName(usual, result, again);
    expectAsAlways(usual, again);
    if (!fault.answer) {
        expectNothingHalf(*useCase, usual, result, again);
    }
    if (!fault.answer || useCase->answersAreTold) {
        expectNoHalfState(usual, result);
        expectTold(usual, result, again, fault.lasts ? useCase->reportsOfFullDisk : 1);
    }
}

bool isAnswer(const UseCase& useCase, FileOperation operation, ErrorNumber error) {
    return operation == FileOperation::CanListFolder ||
           operation == FileOperation::FirstNormalFile ||
           (error == ErrorNumber::FileAlreadyExists && useCase.takesAnotherName);
}

using enum ErrorNumber;

// What each call may raise, by its contract.
std::map<FileOperation, std::vector<ErrorNumber>> errorsOfContract() {
    std::map<FileOperation, std::vector<ErrorNumber>> errors{
        {FileOperation::FirstNormalFile, {PathNotFound}},
        {FileOperation::ListFiles, {PathNotFound, PathFileAccess}},
        {FileOperation::ListFolders, {PathNotFound, PathFileAccess}},
        {FileOperation::ShortPath, {FileNotFound, PathNotFound}},
        {FileOperation::OpenForReading,
         {FileNotFound, PathNotFound, PathFileAccess, PermissionDenied}},
        {FileOperation::Create, {PathFileAccess, PermissionDenied, PathNotFound, DiskFull}},
        {FileOperation::CreateNew,
         {FileAlreadyExists, PathFileAccess, PermissionDenied, PathNotFound, DiskFull}},
        {FileOperation::Append, {PathFileAccess, PermissionDenied, PathNotFound, DiskFull}},
        {FileOperation::Remove, {FileNotFound, PathFileAccess, PermissionDenied, PathNotFound}},
        {FileOperation::CreateFolder, {PathFileAccess, PathNotFound}},
        {FileOperation::MoveOver,
         {FileNotFound, PathFileAccess, PermissionDenied, DifferentDrive, PathNotFound}},
        {FileOperation::Replace,
         {FileNotFound, PathFileAccess, PermissionDenied, DifferentDrive, PathNotFound}},
    };
    for (auto& [call, raised] : errors) { // as every path may
        raised.insert(raised.end(), {BadFileName, DeviceUnavailable, DiskNotReady});
    }
    errors.insert({
        {FileOperation::CanListFolder, {DiskNotReady}}, // where it is false, whatever the reason
        {FileOperation::Drives, {}},                    // neither raises
        {FileOperation::CurrentFolder, {}},
        {FileOperation::Read, {DeviceIO, PermissionDenied}},
        {FileOperation::Write, {DiskFull, DeviceIO}},
        {FileOperation::Drain, {DiskFull, DeviceIO}},
        {FileOperation::Flush, {DiskFull, DeviceIO}},
        {FileOperation::Close, {DiskFull, DeviceIO}},
    });
    return errors;
}

} // namespace

void breakEveryStep(const MakeUseCase& make) {
    const Undisturbed usual = undisturbed(make);
    const auto errors = errorsOfContract();
    ASSERT_FALSE(usual.calls.empty());
    for (std::size_t number = 0; number < usual.calls.size(); ++number) {
        const auto& [operation, path] = usual.calls[number];
        for (const ErrorNumber error : errors.at(operation)) {
            SCOPED_TRACE("call " + std::to_string(number) + " of " +
                         std::to_string(usual.calls.size()) + ", " +
                         std::string(nameOf(operation)) + ' ' + path + ", raises " +
                         std::to_string(static_cast<int>(error)));
            tryBroken(usual, make,
                      {.apply = [&](StepFiles& files) { files.breakCall(number, error); },
                       .answer = isAnswer(*make(), operation, error)});
        }
    }
}

void fillDiskAtEveryByte(const MakeUseCase& make, std::string_view volume) {
    const Undisturbed usual = undisturbed(make, volume);
    ASSERT_GT(usual.bytes, 0U);
    for (std::size_t bytes = 0; bytes < usual.bytes; ++bytes) {
        SCOPED_TRACE("the disk is full after " + std::to_string(bytes) + " bytes");
        tryBroken(usual, make,
                  {.apply = [&](StepFiles& files) { files.fillDiskAfter(bytes, volume); },
                   .lasts = true});
    }
}

} // namespace tarnwick
