#pragma once

#include "platform/clock.hpp"
#include "platform/command_interpreter.hpp"
#include "platform/files.hpp"
#include "platform/process.hpp"
#include "platform/settings_store.hpp"

#include <functional>
#include <memory>
#include <string>
#include <string_view>

namespace tarnwick {

// One system's implementation of the platform interfaces, with an empty scratch folder that is
// removed at the end, and what a test must arrange behind the interfaces' back.
class PlatformUnderTest {
  public:
    virtual ~PlatformUnderTest() = default;

    virtual Files& files() = 0;
    [[nodiscard]] virtual std::string scratch() const = 0; // full, without a final "\"
    // The current folder of `files`; `scratch` need not lie in it.
    [[nodiscard]] virtual std::string currentFolder() const = 0;
    [[nodiscard]] virtual std::string emptyDrive() = 0; // such as "E:"
    // An empty folder on another volume than `scratch`, without a final "\".
    [[nodiscard]] virtual std::string otherVolume() = 0;
    [[nodiscard]] virtual std::string missingDrive() const = 0; // such as "Q:"
    virtual void hide(const std::string& path) = 0;
    virtual void makeSystem(const std::string& path) = 0;
    virtual void makeReadOnly(const std::string& path) = 0;
    // Takes the others' rights to the file away, and tells them in the system's own words.
    virtual void keepFromOthers(const std::string& path) = 0;
    [[nodiscard]] virtual std::string rightsTo(const std::string& path) const = 0;
    // The same files, on a volume that keeps no short names.
    virtual Files& filesWithoutShortNames() = 0;
    // Makes a file whose name has no place in the system's code page: `end` behind one such
    // character. How that name is shown.
    virtual std::string makeNameless(const std::string& folder, const std::string& end) = 0;
    // Another program keeps the file to itself as long as the result lives.
    [[nodiscard]] virtual std::shared_ptr<void> keep(const std::string& path) = 0;
    // A path under which the standard library opens the file.
    [[nodiscard]] virtual std::string libraryPath(const std::string& path) const = 0;

    virtual SettingsStore& settings() = 0;
    // An application of the test's own, of which nothing is stored yet or left at the end.
    [[nodiscard]] virtual std::string application() const = 0;

    virtual Process& process() = 0;
    virtual void setVariable(const std::string& name, const std::string& value) = 0;

    virtual CommandInterpreter& interpreter() = 0;
    // A batch file that waits until `signal` exists, then writes `marker`.
    [[nodiscard]] virtual std::string batchThatWaits(const std::string& signal,
                                                     const std::string& marker) const = 0;

    virtual Clock& clock() = 0;
    virtual PendingEvents& events() = 0;
    // Lets that much time go by.
    virtual void letPass(double seconds) = 0;
    // Lets `event` wait; any thread may post.
    virtual void post(std::function<void()> event) = 0;
    // Lets `event` wait from some moment in `wait` on, which runs here and now.
    virtual void postDuring(std::function<void()> event, const std::function<void()>& wait) = 0;
};

// Defined once for each system.
[[nodiscard]] std::unique_ptr<PlatformUnderTest> makePlatformUnderTest();

} // namespace tarnwick
