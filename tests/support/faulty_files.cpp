#include "support/faulty_files.hpp"

#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace tarnwick {

class FaultyFiles::Plan : public Observer {
  public:
    struct Fault {
        int callsBefore = 0;
        bool always = false;
        RunTimeError error;
    };

    void beforeCall(FileOperation operation, std::string_view /*path*/) override {
        const auto found = faults.find(operation);
        if (found == faults.end() || found->second.callsBefore-- > 0) {
            return;
        }
        const auto error = found->second.error.record();
        if (found->second.always) {
            found->second.callsBefore = 0;
        } else {
            faults.erase(found);
        }
        throw RunTimeError(error);
    }

    std::size_t room(std::size_t length) override {
        if (!freeBytes) {
            return length;
        }
        const auto count = std::min(length, *freeBytes);
        *freeBytes -= count;
        return count;
    }

    void afterShortWrite() override { throw RunTimeError(ErrorNumber::DiskFull); }

    std::map<FileOperation, Fault> faults;
    std::optional<std::size_t> freeBytes;
};

FaultyFiles::FaultyFiles(Files& files) : FaultyFiles(files, std::make_shared<Plan>()) {}

FaultyFiles::FaultyFiles(Files& files, std::shared_ptr<Plan> plan)
    : WatchedFiles(files, plan), plan_(std::move(plan)) {}

void FaultyFiles::failAt(FileOperation operation, int nth, const RunTimeError& error) {
    plan_->faults.insert_or_assign(
        operation, Plan::Fault{.callsBefore = nth - 1, .always = false, .error = error});
}

void FaultyFiles::failAlways(FileOperation operation, const RunTimeError& error) {
    plan_->faults.insert_or_assign(operation,
                                   Plan::Fault{.callsBefore = 0, .always = true, .error = error});
}

void FaultyFiles::fillDiskAfter(std::size_t bytes) {
    plan_->freeBytes = bytes;
}

void FaultyFiles::heal() {
    plan_->faults.clear();
    plan_->freeBytes.reset();
}

} // namespace tarnwick
