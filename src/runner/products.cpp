#include "runner/products.hpp"

#include "common/text.hpp"
#include "runner/hash.hpp"

#include <algorithm>
#include <span>
#include <utility>

namespace tarnwick {
namespace {

// Stands for a record in the commands that are looked at here: no file has such a name.
constexpr std::string_view anyRecord = "*";

std::string lowerCase(std::string_view text) {
    std::string result(text);
    std::ranges::transform(result, result.begin(), [](char c) {
        return c >= 'A' && c <= 'Z' ? static_cast<char>(c | 0x20) : c;
    });
    return result;
}

// What the outputs of a step are called, in the order of its command.
std::vector<std::string> labels(const BatchDefinition& job, Tool tool, KnownFolders& folders) {
    std::vector<std::string> result;
    const std::span<const OutputDefinition> rows =
        tool == Tool::CNS ? std::span<const OutputDefinition>(job.CNSOutputs) : job.MPOutputs;
    for (const OutputDefinition& row : rows) {
        if (row.bBuild && folders.exists(row.sOutputFolder)) {
            result.push_back(lowerCase(row.sFileType));
        }
    }
    if (tool == Tool::CNS) {
        result.emplace_back("cns");
    }
    return result;
}

ProductKind kindOf(std::string_view path, std::string label, Tool tool) {
    const auto place = path.rfind(anyRecord);
    return {.label = std::move(label),
            .folder = std::string(path.substr(0, place)),
            .suffix = std::string(path.substr(place + anyRecord.size())),
            .tool = tool};
}

} // namespace

std::vector<RecordCall> recordCalls(const BatchDefinition& job, KnownFolders& folders,
                                    std::string_view record) {
    std::vector<RecordCall> calls;
    for (ToolStep& step : toolSteps(job, record)) {
        RecordCall& call = calls.emplace_back(RecordCall{.step = std::move(step), .command = {}});
        buildCommand(call.command, job, folders, call.step);
    }
    return calls;
}

Products::Products(const BatchDefinition& job, KnownFolders& folders)
    : known_(!job.bCfgNamesOutput) {
    std::string all;
    for (const auto& [step, command] : recordCalls(job, folders, anyRecord)) {
        all.append(batchLine(command)).append("\n");
        if (!known_) {
            continue;
        }
        auto names = labels(job, step.tool, folders);
        auto name = names.begin();
        for (const ToolArgument& argument : command.arguments) {
            if (argument.kind == ToolArgument::Kind::Output) {
                kinds_.push_back(kindOf(argument.text, std::move(*name++), step.tool));
            }
        }
    }
    hash_ = hashOf(all.append(rewritesLinks(job) ? "links" : ""));
    cutsTwice_ = job.iProcessCNS == checked && job.iProcessMP == checked;
    cnsExtension_ = trim(job.sCNSOutputExtension).empty() ? "" : job.sCNSOutputExtension;
}

std::string Products::stemOf(Tool tool, std::string_view record) const {
    std::string base = GetBaseName(record);
    return cutsTwice_ && tool == Tool::MP ? GetBaseName(base + cnsExtension_) : base;
}

std::string Products::suffixOf(const ProductKind& kind) const {
    if (!cutsTwice_ || kind.tool != Tool::MP) {
        return kind.suffix;
    }
    // The extension of a name without a dot of its own is a part of the suffix already.
    const std::string ofExtension = GetBaseName(std::string(anyRecord) + cnsExtension_);
    return kind.suffix.substr(ofExtension.size() - anyRecord.size());
}

std::string Products::nameOf(const ProductKind& kind, std::string_view record) const {
    return stemOf(kind.tool, record) + suffixOf(kind);
}

std::string Products::pathOf(const ProductKind& kind, std::string_view record) const {
    return kind.folder + nameOf(kind, record);
}

} // namespace tarnwick
