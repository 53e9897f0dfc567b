#pragma once

#include "platform/files.hpp"
#include "platform/tool_paths.hpp"
#include "runner/job.hpp"
#include "runner/known_tool_paths.hpp"
#include "runner/products.hpp"
#include "runner/record_outcome.hpp"
#include "runner/run_settings.hpp"
#include "runner/written_files.hpp"

#include <string>

namespace tarnwick {

// What the work on a record needs of the system.
struct RecordServices {
    Files& files;
    const FileStamps& stamps;
    const ToolPaths& paths;
    ToolProcesses& processes;
    ToolText toolText;
};

// Does the work on records, one at a time: CNS, MP and the links of their pages. Several of these
// work side by side; what they refer to must outlive them.
class RecordRun {
  public:
    // `temporary` is a path of its own, without an extension, in a folder with few files: pages are
    // rewritten by way of it.
    RecordRun(const Job& job, const Products& products, const RunSettings& settings,
              const WrittenFiles& written, const RecordServices& services, std::string temporary);

    // Never raises but for want of memory: what goes wrong is in the outcome.
    [[nodiscard]] RecordOutcome run(const std::string& record);

  private:
    using Stamps = std::vector<std::optional<Stamp>>;

    RecordOutcome attempt(const std::string& record);
    void makeProducts(RecordOutcome& outcome);
    [[nodiscard]] bool makeCall(const RecordCall& call, RecordOutcome& outcome);
    [[nodiscard]] bool isAccepted(const ToolEnd& end) const;
    [[nodiscard]] Stamps stampsOf(Tool tool, const std::string& record) const;
    [[nodiscard]] std::string missingProduct(Tool tool, const std::string& record,
                                             const Stamps& before) const;
    void takeMessages(Tool tool, const Stamps& before, RecordOutcome& outcome);
    void judgeMessages(RecordOutcome& outcome) const;
    void removeProducts(Tool tool, const std::string& record, const Stamps& before);
    void rewriteLinks(const RecordCall& call, const std::string& record);
    void takeStamps(RecordOutcome& outcome) const;
    [[nodiscard]] bool isRecordItself(const ProductKind& kind, const std::string& record) const;

    const Job& job_;
    const Products& products_;
    const RunSettings& settings_;
    const WrittenFiles& written_;
    RecordServices services_;
    KnownToolPaths paths_;
    KnownFolders folders_;
    std::string temporary_;
    std::size_t reports_;         // that hold messages, of each record
    std::size_t reportsRead_ = 0; // of the record in work
};

} // namespace tarnwick
