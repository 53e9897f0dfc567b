#include "report/kept_findings.hpp"

#include "report/joined_runs.hpp"
#include "report/shapes.hpp"
#include "runner/message_log.hpp"
#include "runner/run_log.hpp"

#include <algorithm>
#include <tuple>
#include <unordered_map>
#include <utility>

namespace tarnwick {
namespace {

// Which line of the log counts for a record; 0 is none, 1 the first.
struct CountingLines {
    std::size_t now = 0;
    std::size_t before = 0; // of the state at the end of the run before
    bool nowIsKnown = false;
    bool beforeIsKnown = false;

    void take(std::size_t line, bool isKnown, bool ofLastRun) {
        if (!ofLastRun || !nowIsOfLastRun_) {
            before = ofLastRun ? now : line;
            beforeIsKnown = ofLastRun ? nowIsKnown : isKnown;
        }
        now = line;
        nowIsKnown = isKnown;
        nowIsOfLastRun_ = ofLastRun;
    }
    // What is not known is no other than it is now.
    void settle() {
        if (!nowIsKnown) {
            now = 0;
            before = 0;
        } else if (before != 0 && !beforeIsKnown) {
            before = now;
        }
    }

  private:
    bool nowIsOfLastRun_ = false;
};

class FindingsReader {
  public:
    FindingsReader(const Files& files, const FindingsRequest& request)
        : files_(files), request_(request), lines_(request.records.size()) {
        for (RecordPlace place = 0; place < request.records.size(); ++place) {
            places_.emplace(request.records[place], place);
        }
        found_.findings.resize(request.records.size());
        found_.messages.resize(request.records.size());
        found_.leftOut.resize(request.records.size());
        found_.failing.resize(request.records.size());
        found_.judgements.resize(request.records.size(), Judgement::Unknown);
        shapesBefore_.resize(request.records.size());
    }

    KeptFindings read() {
        eachMessagesLine([&](RecordPlace record, std::size_t number, const MessagesLine& line) {
            const bool ofLastRun = line.run == logOf(record).lastRun;
            found_.hasRunBefore = found_.hasRunBefore || !ofLastRun;
            lines_[record].take(number, line.known, ofLastRun);
        });
        std::ranges::for_each(lines_, [](CountingLines& lines) { lines.settle(); });
        eachMessagesLine([&](RecordPlace record, std::size_t number, const MessagesLine& line) {
            if (number == lines_[record].now) {
                takeNow(record, line);
            }
            if (number == lines_[record].before && number != lines_[record].now) {
                takeBefore(record, line.messages);
            }
        });
        found_.runs = runsOf(std::move(ended_), request_.logs);
        compare();
        markCommon();
        sortShapes();
        return std::move(found_);
    }

  private:
    [[nodiscard]] const MessageSource& logOf(RecordPlace record) const {
        return request_.logs[request_.logOf[record]];
    }

    // Of each log the lines about the records for which it counts. Also gathers the totals of the
    // runs, which stand between them.
    template <typename Use>
    void eachMessagesLine(const Use& use) {
        std::size_t number = 0;
        ended_.clear();
        for (std::uint32_t log = 0; log < request_.logs.size(); ++log) {
            readMessageLog(files_, request_.logs[log].path, [&](MessageLogLine& line) {
                ++number;
                if (auto* const ended = std::get_if<TotalsLine>(&line)) {
                    ended_.push_back({.log = log,
                                      .run = ended->run,
                                      .totals = std::move(ended->totals),
                                      .findingsAsBefore = ended->findingsAsBefore});
                    return;
                }
                const auto& messages = std::get<MessagesLine>(line);
                const auto place = places_.find(messages.record);
                if (place != places_.end() && request_.logOf[place->second] == log) {
                    use(place->second, number, messages);
                }
            });
        }
    }

    void takeNow(RecordPlace record, const MessagesLine& said) {
        judge(record, said);
        found_.leftOut[record] = said.missing ? said.missing->leftOut : 0;
        KeptMessages& texts = found_.messages[record];
        const std::string name = request_.utf8(request_.records[record]);
        const bool withTexts = request_.wantsTexts && request_.wantsTexts(record);
        for (const auto& [line, text] : said.messages) {
            if (request_.patterns.isIgnored(text)) {
                continue;
            }
            std::string shown = request_.utf8(text);
            const ShapePlace place = placeOf(shapeOf(shown, name));
            if (withTexts) {
                texts.add({.shape = place, .line = line, .text = shown});
            }
            count(record, place, line, std::move(shown));
        }
        texts.finish();
        found_.findings[record].shrink_to_fit();
    }

    void judge(RecordPlace record, const MessagesLine& said) {
        found_.judgements[record] = judgementOf(said, request_.patterns);
        if (found_.judgements[record] == Judgement::Fails) {
            found_.failing[record] =
                std::ranges::find_if(said.messages, [&](const ToolMessage& message) {
                    return request_.patterns.fails(message.text);
                })->text;
        }
    }

    void count(RecordPlace record, ShapePlace place, std::uint32_t line, std::string shown) {
        std::vector<Finding>& findings = found_.findings[record];
        Shape& shape = found_.shapes[place];
        ++shape.messages;
        const auto known = std::ranges::find(findings, place, &Finding::shape);
        if (known != findings.end()) {
            ++known->messages;
            return;
        }
        ++shape.records;
        findings.push_back({.shape = place, .messages = 1, .line = line});
        addExample(shape, {.record = record, .line = line, .text = std::move(shown)});
    }

    // One of a record, of the first records that have it.
    static void addExample(Shape& shape, Example example) {
        const auto behind =
            std::ranges::upper_bound(shape.examples, example.record, {}, &Example::record);
        shape.examples.insert(behind, std::move(example));
        if (shape.examples.size() > Shape::mostExamples) {
            shape.examples.pop_back();
        }
    }

    void takeBefore(RecordPlace record, const std::vector<ToolMessage>& messages) {
        std::vector<ShapePlace>& shapes = shapesBefore_[record];
        const std::string name = request_.utf8(request_.records[record]);
        for (const auto& [line, text] : messages) {
            if (!request_.patterns.isIgnored(text)) {
                shapes.push_back(placeOf(shapeOf(request_.utf8(text), name)));
            }
        }
        std::ranges::sort(shapes);
        const auto again = std::ranges::unique(shapes);
        shapes.erase(again.begin(), again.end());
    }

    ShapePlace placeOf(std::string text) {
        const auto known = shapePlaces_.find(text);
        if (known != shapePlaces_.end()) {
            return known->second;
        }
        const auto place = static_cast<ShapePlace>(found_.shapes.size());
        found_.shapes.push_back({.text = text});
        shapePlaces_.emplace(std::move(text), place);
        return place;
    }

    void compare() {
        for (RecordPlace record = 0; record < lines_.size(); ++record) {
            std::vector<ShapePlace> now;
            for (const Finding& finding : found_.findings[record]) {
                now.push_back(finding.shape);
            }
            std::ranges::sort(now);
            const bool isAsBefore = lines_[record].before == lines_[record].now;
            const auto& before = isAsBefore ? now : shapesBefore_[record];
            for (const ShapePlace shape : before) {
                ++found_.shapes[shape].recordsBefore;
            }
            if (!found_.hasRunBefore || now == before) {
                continue;
            }
            RecordChange change{.record = record};
            std::ranges::set_difference(now, before, std::back_inserter(change.appeared));
            std::ranges::set_difference(before, now, std::back_inserter(change.gone));
            found_.changes.push_back(std::move(change));
        }
    }

    void markCommon() {
        const auto known = static_cast<std::size_t>(std::ranges::count_if(
            lines_, [](const CountingLines& lines) { return lines.now != 0; }));
        for (Shape& shape : found_.shapes) {
            shape.common = isCommon(shape.records, known);
        }
    }

    // By records that have it, those that are gone last; and every place follows.
    void sortShapes() {
        std::vector<ShapePlace> order(found_.shapes.size());
        for (ShapePlace place = 0; place < order.size(); ++place) {
            order[place] = place;
        }
        const auto key = [&](ShapePlace place) {
            const Shape& shape = found_.shapes[place];
            return std::tuple(~std::uint64_t{shape.records}, ~shape.messages,
                              ~std::uint64_t{shape.recordsBefore}, std::string_view(shape.text));
        };
        std::ranges::sort(order, {}, key);
        std::vector<ShapePlace> newPlace(order.size());
        std::vector<Shape> sorted;
        sorted.reserve(order.size());
        for (ShapePlace place = 0; place < order.size(); ++place) {
            newPlace[order[place]] = place;
        }
        for (const ShapePlace old : order) {
            sorted.push_back(std::move(found_.shapes[old]));
        }
        found_.shapes = std::move(sorted);
        for (auto& findings : found_.findings) {
            for (Finding& finding : findings) {
                finding.shape = newPlace[finding.shape];
            }
        }
        for (KeptMessages& messages : found_.messages) {
            messages.moveShapes(newPlace);
        }
        for (RecordChange& change : found_.changes) {
            for (auto* const shapes : {&change.appeared, &change.gone}) {
                std::ranges::transform(*shapes, shapes->begin(),
                                       [&](ShapePlace old) { return newPlace[old]; });
                std::ranges::sort(*shapes);
            }
        }
    }

    const Files& files_;
    const FindingsRequest& request_;
    std::unordered_map<std::string_view, RecordPlace> places_;
    std::vector<CountingLines> lines_;                  // of each record
    std::vector<std::vector<ShapePlace>> shapesBefore_; // likewise, where they were others
    std::unordered_map<std::string, ShapePlace> shapePlaces_;
    std::vector<EndedRun> ended_;
    KeptFindings found_;
};

} // namespace

KeptFindings readFindings(const Files& files, const FindingsRequest& request) {
    return FindingsReader(files, request).read();
}

void countFindings(const KeptFindings& findings, RunTotals& totals) {
    for (std::size_t record = 0; record < findings.findings.size(); ++record) {
        std::uint64_t messages = findings.leftOut[record];
        for (const Finding& finding : findings.findings[record]) {
            messages += findings.shapes[finding.shape].common ? 0 : finding.messages;
        }
        totals.messages += messages;
        totals.recordsWithFindings += messages > 0 ? 1 : 0;
    }
}

} // namespace tarnwick
