#include "processing/process_and_wait.hpp"

#include "common/mod_main.hpp"
#include "common/one_step_file.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"
#include "processing/batch_writer.hpp"
#include "processing/passing_lock.hpp"

#include <functional>
#include <utility>

namespace tarnwick {
namespace {

constexpr std::string_view batchName = "MPtmp.bat";
constexpr std::string_view markerName = "MPdone.tmp";
constexpr double beforeFirstLook = 1; // seconds
constexpr double betweenLooks = 2;
constexpr double afterMarker = 1;

// Where the interpreter ends a word or finds a meaning of its own.
constexpr std::string_view notPlain = " \t&^()<>|,;=%!\"'`";

bool isPlain(std::string_view path) {
    return path.find_first_of(notPlain) == std::string_view::npos;
}

std::string shortFolder(const Files& files, const std::string& folder) {
    try {
        return withBackslash(files.shortPath(folder));
    } catch (const RunTimeError&) {
        return folder; // what is wrong with it shows when the batch is written
    }
}

// False when a stop is asked for before the condition is met.
template <typename Condition>
bool waitUntil(const RunServices& services, const StopRequest& stop, const Condition& isMet) {
    while (!isMet()) {
        if (stop.cancelled) {
            return false;
        }
        services.events.letRun();
        pause(services.clock, services.events, betweenLooks, stop);
        services.events.letRun();
        if (stop.cancelled) {
            return false;
        }
    }
    return true;
}

class Waiting {
  public:
    Waiting(const RunServices& services, const TemporaryFiles& temporary, const StopRequest& stop,
            LeftBatch& left)
        : services_(services), temporary_(temporary), stop_(stop), left_(left) {}

    Waited run(std::string_view folder, std::string_view statement) {
        if (!outlastLock([this] { clearMarker(); })) {
            return Waited::Stopped;
        }
        letEventsRun();
        if (!outlastLock([&] { writeBatch(folder, statement); })) {
            return Waited::Stopped;
        }
        letEventsRun();
        if (stop_.closed) { // has taken the batch along
            return Waited::Stopped;
        }
        // Whatever keeps this run from waiting for its end, the next one waits for it.
        left_ = services_.interpreter.startHidden(temporary_.batch);
        const Waited result = waitFor(*left_);
        if (result == Waited::Done || left_->hasEnded()) {
            left_.reset();
        }
        return result;
    }

  private:
    [[nodiscard]] Waited waitFor(const StartedBatch& batch) {
        letEventsRun();
        letEventsRun();
        wait(beforeFirstLook);
        // A batch that has ended without a marker will never write it.
        const auto markerOrEnd = [&] { return markerIsThere() || batch.hasEnded(); };
        if (!waitUntil(services_, stop_, markerOrEnd)) {
            return Waited::Stopped;
        }
        // Looked for once more: it may have come between the two questions.
        if (!markerIsThere()) {
            if (stop_.cancelled) {
                return Waited::Stopped;
            }
            raiseDidNotRun();
        }
        letEventsRun();
        wait(afterMarker);
        // The marker of another window's batch says nothing about this one, which would have ended
        // by now.
        const bool ended = waitUntil(services_, stop_, [&] { return batch.hasEnded(); });
        return ended ? Waited::Done : Waited::Stopped;
    }

    // Scripts may be forbidden here, a virus scanner may have taken the file away, the tool may
    // have ended the interpreter, or the temporary folder is gone: the next record would do no
    // better.
    [[noreturn]] void raiseDidNotRun() const {
        ErrorRecord error = RunTimeError(ErrorNumber::PathFileAccess).record();
        error.description +=
            ": the batch file " + quoted(temporary_.batch) + " ended before its last line";
        throw RunTimeError(std::move(error));
    }

    [[nodiscard]] bool markerIsThere() const {
        return FileExists(services_.files, temporary_.marker);
    }

    // Of the tool before, or of one that an earlier run has left to itself.
    void clearMarker() {
        if (markerIsThere()) {
            services_.files.remove(temporary_.marker);
        }
    }

    void writeBatch(std::string_view folder, std::string_view statement) {
        BatchWriter batch(createAnew(services_.files, temporary_.batch), services_.interpreter);
        changeToFolder(batch, folder);
        batch.line("");
        batch.line(statement);
        batch.line("echo Done! > " + redirectionTarget(services_.files, temporary_));
        batch.close();
    }

    [[nodiscard]] bool outlastLock(const std::function<void()>& change) {
        return outlastPassingLock(services_.clock, services_.events, stop_, change);
    }
    void letEventsRun() { services_.events.letRun(); }
    void wait(double seconds) { pause(services_.clock, services_.events, seconds, stop_); }

    const RunServices& services_;
    const TemporaryFiles& temporary_;
    const StopRequest& stop_;
    LeftBatch& left_;
};

} // namespace

TemporaryFiles::TemporaryFiles(std::string_view folder)
    : sTempFolder(withBackslash(folder)),
      batch(joinPath(folder, batchName)),
      marker(joinPath(folder, markerName)) {}

std::string redirectionTarget(const Files& files, const TemporaryFiles& temporary) {
    if (isPlain(temporary.marker)) {
        return temporary.marker;
    }
    const std::string shortened = joinPath(shortFolder(files, temporary.sTempFolder), markerName);
    // In a batch file a single "%" begins the name of a variable.
    return isPlain(shortened) ? shortened : quoted(withDoubled(temporary.marker, '%'));
}

bool waitForLeftBatch(const RunServices& services, LeftBatch& left, const StopRequest& stop) {
    if (!waitUntil(services, stop, [&] { return left == nullptr || left->hasEnded(); })) {
        return false;
    }
    left.reset();
    return true;
}

// Where the batch cannot be written or started there is no marker to wait for.
Waited ProcessAndWait(const RunServices& services, const TemporaryFiles& temporary,
                      std::string_view sInputFolder, std::string_view sStatement,
                      const StopRequest& stop, LeftBatch& left) {
    Waited result = Waited::Failed;
    trap(services.desktop, "frmMain", "Private Sub ProcessAndWait()",
         [&] { result = Waiting(services, temporary, stop, left).run(sInputFolder, sStatement); });
    return result;
}

} // namespace tarnwick
