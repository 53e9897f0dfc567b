#include "processing/process_and_wait.hpp"

#include "common/mod_main.hpp"
#include "common/text.hpp"
#include "common/trap.hpp"
#include "processing/batch_writer.hpp"

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

// In a batch file a single "%" begins the name of a variable.
std::string withDoubledPercents(std::string_view text) {
    std::string result;
    for (const char character : text) {
        result.append(character == '%' ? 2 : 1, character);
    }
    return result;
}

class Waiting {
  public:
    Waiting(const RunServices& services, const TemporaryFiles& temporary, const StopRequest& stop)
        : services_(services), temporary_(temporary), stop_(stop) {}

    Waited run(std::string_view folder, std::string_view statement) {
        clearMarker();
        letEventsRun();
        writeBatch(folder, statement);
        letEventsRun();
        if (stop_.closed) { // has taken the batch along
            return Waited::Stopped;
        }
        const auto batch = services_.interpreter.startHidden(temporary_.batch);
        letEventsRun();
        letEventsRun();
        wait(beforeFirstLook);
        // A batch that has ended without a marker has nowhere to write it, and never will.
        if (!waitUntil([&] { return markerIsThere() || batch->hasEnded(); })) {
            return Waited::Stopped;
        }
        letEventsRun();
        wait(afterMarker);
        // The marker of a batch that was left to itself says nothing about this one, which would
        // have ended by now.
        return waitUntil([&] { return batch->hasEnded(); }) ? Waited::Done : Waited::Stopped;
    }

  private:
    // False when a stop is asked for before that.
    template <typename Condition>
    [[nodiscard]] bool waitUntil(const Condition& isMet) {
        while (!isMet()) {
            if (stop_.cancelled) {
                return false;
            }
            letEventsRun();
            wait(betweenLooks);
            letEventsRun();
            if (stop_.cancelled) {
                return false;
            }
        }
        return true;
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
        BatchWriter batch(services_.files.create(temporary_.batch), services_.interpreter);
        changeToFolder(batch, folder);
        batch.line("");
        batch.line(statement);
        batch.line("echo Done! > " + redirectionTarget(services_.files, temporary_));
        batch.close();
    }

    void letEventsRun() { services_.events.letRun(); }
    void wait(double seconds) { pause(services_.clock, services_.events, seconds, stop_); }

    const RunServices& services_;
    const TemporaryFiles& temporary_;
    const StopRequest& stop_;
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
    return isPlain(shortened) ? shortened : quoted(withDoubledPercents(temporary.marker));
}

// Where the batch cannot be written or started there is no marker to wait for.
Waited ProcessAndWait(const RunServices& services, const TemporaryFiles& temporary,
                      std::string_view sInputFolder, std::string_view sStatement,
                      const StopRequest& stop) {
    Waited result = Waited::Failed;
    trap(services.desktop, "frmMain", "Private Sub ProcessAndWait()",
         [&] { result = Waiting(services, temporary, stop).run(sInputFolder, sStatement); });
    return result;
}

} // namespace tarnwick
