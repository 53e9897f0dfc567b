#pragma once

// Reports over whole runs, by the tools of RunnerWorld: what each record says is what its error
// report says of it, and a record whose name begins with "fail" fails.

#include "report/report_command.hpp"
#include "report/run_report_of.hpp"
#include "unit/runner/runner_world.hpp"

#include <gmock/gmock.h>

#include <string>

namespace tarnwick {

class ReportsOnRuns : public testing::Test {
  protected:
    ReportsOnRuns() {
        machine_.processes.act = [this](const ToolCall& call) {
            const std::string record = RunnerWorld::lastName(call.arguments.back());
            const ToolEnd end = machine_.work(call);
            RunnerWorld::writeHost(call.arguments[3], machine_.world.read(R"(C:\in\)" + record));
            return record.starts_with("fail") ? exited(3, "no such element") : end;
        };
        request_.definition = "night.ini";
        request_.stateFolder = machine_.request.stateFolder;
        request_.holder = machine_.request.holder;
    }

    ExitStatus run() {
        request_.patterns = machine_.request.settings.messages;
        machine_.request.remarksBefore = remarksOnReports(request_, services_);
        machine_.request.whenEnded = reportsAtTheEnd(request_, services_, utf8_);
        return machine_.run();
    }
    ExitStatus report() {
        machine_.request.job.runsTools = false;
        const ExitStatus status =
            reportOnRuns(machine_.definition, machine_.request, request_, services_, utf8_);
        machine_.request.job.runsTools = true;
        return status;
    }
    // As `report` finds it.
    RunReport value() {
        JobRequest asked = machine_.request.job;
        asked.runsTools = false;
        const auto [job, faults] = checkJob(machine_.definition, asked,
                                            {.files = *machine_.files,
                                             .stamps = machine_.stamps,
                                             .paths = machine_.paths,
                                             .canStart = [](const std::string&) { return false; }});
        EXPECT_THAT(faults, testing::IsEmpty());
        KnownFolders folders(*machine_.files);
        const Products products(job.definition, folders);
        RunReport made = runReportOf({.job = job,
                                      .products = products,
                                      .definition = "night.ini",
                                      .stateFolder = request_.stateFolder,
                                      .patterns = request_.patterns,
                                      .share = {},
                                      .holder = request_.holder},
                                     services_, utf8_);
        linkProducts(made, products, R"(C:\job\out.html)", machine_.paths, utf8_);
        return made;
    }
    std::string states() {
        constexpr std::string_view letters = "muf-";
        std::string text;
        for (const ReportedRecord& record : value().records) {
            text.append(text.empty() ? "" : " ")
                .append(record.name)
                .append(":")
                .append(1, letters[static_cast<std::size_t>(record.state)]);
        }
        return text;
    }

    RunnerWorld machine_;
    ReportRequest request_;
    RunnerServices services_{.files = *machine_.files,
                             .stamps = machine_.stamps,
                             .paths = machine_.paths,
                             .processes = machine_.processes,
                             .locks = machine_.locks,
                             .interruptions = machine_.interruptions,
                             .terminal = machine_.terminal,
                             .clock = machine_.clock,
                             .canStart = [](const std::string&) { return false; }};
    ToUtf8 utf8_ = [](std::string_view text) { return std::string(text); };
};

} // namespace tarnwick
