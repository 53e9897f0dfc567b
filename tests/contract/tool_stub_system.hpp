#pragma once

#include <string>
#include <vector>

// What the stand-in for a tool needs of the system, once for each.
namespace tarnwick::test {

using Arguments = std::vector<std::string>;

[[nodiscard]] unsigned long ownProcess();
void writeBytesAsTheyAre();
// Starts this program once more, with the same streams, and does not wait for it. The arguments
// hold nothing that would have to be quoted.
void startSelf(const Arguments& arguments);
// Ends as a program does that has gone wrong: see RunnerPlatform::endOfCrash.
[[noreturn]] void crash();

} // namespace tarnwick::test
