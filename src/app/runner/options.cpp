#include "options.hpp"

#include "help_format.hpp"
#include "report/reports.hpp"
#include "runner_version.hpp"

#include <CLI/CLI.hpp>
#include <algorithm>
#include <map>
#include <optional>
#include <utility>

namespace tarnwick {
namespace {

constexpr const char* description =
    R"(Runs Tarnwick's batch definitions: many records at once, and only those that
changed.

  tarnwick-run [run] DEFINITION.ini [RECORD...] [options]
  tarnwick-run commands DEFINITION.ini [RECORD...] [options]
                              only prints the calls
  tarnwick-run report DEFINITION.ini [RECORD...] --report FILE
                              only reports on the last runs)";

constexpr const char* examples = R"(Examples:
  tarnwick-run nightly.ini    make what is new or changed, on all processors
  tarnwick-run nightly.ini --dry-run
                              only say what would be made, and why
  tarnwick-run nightly.ini -j4 a.met "b*.met" --all
                              make these, changed or not, four at a time
  tarnwick-run nightly.ini --report nightly.html
                              make what is new, and a page about all of it

Exit status: 0 everything is made or was; 1 some records failed; 2 nothing was
run; 130 or 143 interrupted. What is known of the last runs lies beside the
definition, in DEFINITION.state.)";

constexpr std::string_view tryHelp = "\nTry: tarnwick-run --help\n";

// Seconds of "90", "90s", "5m" or "2h".
std::string readDuration(const std::string& text, std::optional<double>& seconds) {
    const std::map<char, double> units{{'s', 1}, {'m', 60}, {'h', 3600}};
    std::string number = text;
    double unit = 1;
    if (!number.empty() && units.contains(number.back())) {
        unit = units.at(number.back());
        number.pop_back();
    }
    double value = 0;
    if (!CLI::detail::lexical_cast(number, value) || !(value > 0)) {
        return "a time is a number of seconds, or one with s, m or h behind it: " + text;
    }
    seconds = value * unit;
    return {};
}

struct Typed {
    RunnerOptions options;
    std::string timeout;
    std::string notice;
    std::string shard;
    std::string accept = "0";
    std::string colour = "auto";
    std::string format = "sh";
    std::size_t stopAfter = 0;
};

void addWhat(CLI::App& app, Typed& typed) {
    JobRequest& job = typed.options.job;
    app.add_option("DEFINITION", typed.options.definition, "the definition, as Tarnwick saves it")
        ->required();
    app.add_option("RECORD", job.records, "only these: names, or patterns with * and ?");
    app.add_option("-F,--input-folder", job.inputFolder, "this folder's records")
        ->type_name("FOLDER");
    app.add_option("-e,--extensions", job.inputExtensions, "only these, as \"*.met;*.txt\"")
        ->type_name("PATTERNS");
    app.add_option("--mp", job.mpExecutable, "this MP, in place of the definition's")
        ->type_name("FILE");
    app.add_option("--cns", job.cnsExecutable, "this CNS, likewise")->type_name("FILE");
    app.add_option("--shard", typed.shard,
                   "of several equal parts of the records, only this: K/N, or auto (a task of a "
                   "Slurm array, or TARNWICK_SHARD=K/N)")
        ->type_name("K/N");
    app.add_flag("--in-place", job.inPlace, "a record may be overwritten by what is made of it");
}

void addHow(CLI::App& app, Typed& typed) {
    RunSettings& settings = typed.options.settings;
    app.add_option("-j,--jobs", settings.jobs, "records at once; else one for each processor")
        ->type_name("N")
        ->check(CLI::Range(1, 512));
    app.add_flag("--all", settings.all, "also what is up to date");
    app.add_flag("--dry-run", typed.options.dryRun, "run nothing; say what would be, and why");
    app.add_option("--accept", typed.accept, "statuses of a tool that has done its work (0)")
        ->type_name("LIST");
    app.add_option("--timeout", typed.timeout, "end a tool that takes longer: 90, 90s, 5m, 2h")
        ->type_name("TIME");
    app.add_option("--retries", settings.retries, "so many more attempts, when a record fails")
        ->type_name("N")
        ->check(CLI::Range(0, 1000));
    app.add_option("--stop-after", typed.stopAfter, "begin nothing more after so many failures")
        ->type_name("N")
        ->check(CLI::Range(1, 1'000'000'000));
    app.add_flag("--keep-partial", settings.keepPartial, "keep what a failed tool has made");
    app.add_option("--notice", typed.notice,
                   "after SIGTERM, let the running tools end within half of this time (a share: "
                   "30s; else they are ended at once)")
        ->type_name("TIME");
}

// What is found in the reports of the tools, and what is told of it.
void addFindings(CLI::App& app, Typed& typed) {
    MessagePatterns& messages = typed.options.settings.messages;
    app.add_option("--report", typed.options.reports,
                   "tell how everything stands in this file: .html, .json, .csv, or .xml for "
                   "JUnit; may be given several times")
        ->type_name("FILE")
        ->allow_extra_args(false);
    app.add_option("--ignore", messages.ignore,
                   "messages of the tools that do not count: a pattern with * and ? for the whole "
                   "message; may be given several times")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    app.add_option("--fail-on", messages.failOn,
                   "likewise, messages that make their record a failed one")
        ->type_name("PATTERN")
        ->allow_extra_args(false);
    app.add_option("--state", typed.options.state, "keep what is known of runs in this folder")
        ->type_name("FOLDER");
}

void addShown(CLI::App& app, Typed& typed) {
    ConsoleStyle& style = typed.options.style;
    app.add_flag("-q,--quiet", style.quiet, "say only what failed");
    app.add_flag("-v,--verbose", style.verbose, "show each command, and what it said");
    app.add_option("--color", typed.colour, "auto, always or never (NO_COLOR counts, too)")
        ->type_name("WHEN")
        ->check(CLI::IsMember({"auto", "always", "never"}));
}

void addSystem(CLI::App& app, Typed& typed) {
    ConsoleOptions& console = typed.options.console;
    app.add_option("--drive", console.drives,
                   "not on Windows: where a drive or share lies, as "
                   "T:=/srv/meta; may be given several times")
        ->type_name("DRIVE=FOLDER")
        ->allow_extra_args(false);
    app.add_option("--code-page", console.codePage,
                   "not on Windows: of a definition that is not UTF-8 (1252)")
        ->type_name("N");
}

std::string readAccept(const std::string& text, std::vector<std::int64_t>& accept) {
    accept.clear();
    for (const std::string& one : CLI::detail::split(text, ',')) {
        std::int64_t status = 0;
        if (!CLI::detail::lexical_cast(one, status)) {
            return "a list of statuses is numbers with commas between them: " + text;
        }
        accept.push_back(status);
    }
    return {};
}

std::string readShard(const std::string& text, RunnerOptions& options) {
    options.shareOfEngine = text == "auto";
    if (text.empty() || options.shareOfEngine) {
        return {};
    }
    options.job.share = parseShare(text);
    return options.job.share ? "" : "a share is K/N, with K from 1 to N, or auto: " + text;
}

// An engine that gives a share to a process ends it with notice.
std::string readNotice(const Typed& typed, std::optional<double>& notice) {
    constexpr double usual = 30;
    if (typed.notice.empty()) {
        const bool isShared = typed.options.job.share || typed.options.shareOfEngine;
        notice = isShared ? std::optional(usual) : std::nullopt;
        return {};
    }
    return readDuration(typed.notice, notice);
}

std::string wrongReports(const RunnerOptions& options) {
    for (const std::string& file : options.reports) {
        if (!reportKindOf(file)) {
            return "a report ends in .html, .json, .csv or .xml: " + file;
        }
    }
    if (options.command == RunnerOptions::Command::Report && options.reports.empty()) {
        return "report needs --report FILE";
    }
    return options.dryRun && !options.reports.empty() ? "--dry-run makes no report" : "";
}

// What the user typed as text; a sentence where it means nothing.
std::string readTexts(Typed& typed) {
    RunSettings& settings = typed.options.settings;
    if (auto wrong = readShard(typed.shard, typed.options); !wrong.empty()) {
        return wrong;
    }
    if (auto wrong = readNotice(typed, settings.notice); !wrong.empty()) {
        return wrong;
    }
    if (auto wrong = readAccept(typed.accept, settings.accept); !wrong.empty()) {
        return wrong;
    }
    if (typed.stopAfter > 0) {
        settings.stopAfter = typed.stopAfter;
    }
    const std::map<std::string, Colour> colours{
        {"auto", Colour::Auto}, {"always", Colour::Always}, {"never", Colour::Never}};
    typed.options.style.colour = colours.at(typed.colour);
    const std::map<std::string, CallFormat> formats{
        {"sh", CallFormat::Sh}, {"null", CallFormat::Null}, {"json", CallFormat::Json}};
    typed.options.format = formats.at(typed.format);
    if (auto wrong = wrongReports(typed.options); !wrong.empty()) {
        return wrong;
    }
    return typed.timeout.empty() ? "" : readDuration(typed.timeout, settings.timeLimit);
}

// The command may be left out; a definition of that name is written as ./run.
RunnerOptions::Command takeCommand(std::vector<std::string>& arguments) {
    using enum RunnerOptions::Command;
    const std::map<std::string, RunnerOptions::Command> commands{
        {"run", Run}, {"commands", PrintCalls}, {"report", Report}};
    const auto named = arguments.empty() ? commands.end() : commands.find(arguments.front());
    if (named == commands.end()) {
        return Run;
    }
    arguments.erase(arguments.begin());
    return named->second;
}

} // namespace

std::variant<RunnerOptions, PrintedText> parseOptions(std::vector<std::string> arguments,
                                                      std::size_t processors) {
    Typed typed;
    typed.options.settings.jobs = std::clamp<std::size_t>(processors, 1, 512);
    typed.options.command = takeCommand(arguments);
    CLI::App app(description, "tarnwick-run");
    app.formatter(std::make_shared<HelpFormat>());
    app.footer(examples);
    app.set_version_flag("--version", std::string("tarnwick-run ") + std::string(runnerVersion));
    addWhat(app, typed);
    if (typed.options.command == RunnerOptions::Command::PrintCalls) {
        app.add_option("--format", typed.format, "sh, null (ended by NULs) or json")
            ->type_name("FORMAT")
            ->check(CLI::IsMember({"sh", "null", "json"}));
    } else {
        if (typed.options.command == RunnerOptions::Command::Run) {
            addHow(app, typed);
        }
        addFindings(app, typed);
    }
    addShown(app, typed);
    addSystem(app, typed);
    try {
        std::ranges::reverse(arguments);
        app.parse(std::move(arguments));
        if (const auto wrong = readTexts(typed); !wrong.empty()) {
            return PrintedText{.text = wrong + std::string(tryHelp), .wrongUse = true};
        }
        return std::move(typed.options);
    } catch (const CLI::CallForHelp&) {
        return PrintedText{.text = app.help(), .wrongUse = false};
    } catch (const CLI::CallForVersion& version) {
        return PrintedText{.text = std::string(version.what()) + "\n", .wrongUse = false};
    } catch (const CLI::ParseError& error) {
        return PrintedText{.text = std::string(error.what()) + std::string(tryHelp),
                           .wrongUse = true};
    }
}

} // namespace tarnwick
