#include "pages.hpp"

#include "common/text.hpp"
#include "writers.hpp"

#include <initializer_list>
#include <vector>

namespace demo {
namespace {

void addLine(std::string& out, std::initializer_list<std::string_view> parts) {
    for (const auto part : parts) {
        out += part;
    }
    out += tarnwick::lineEnd;
}

void addValue(std::string& out, const Element& element) {
    std::string value;
    for (const auto& line : element.text) {
        value.append(value.empty() ? "" : tarnwick::lineEnd);
        value.append(line.empty() ? "<br>" : escaped(line));
    }
    addLine(out, {"<dt>", element.rule->name, "</dt>"});
    addLine(out, {"<dd>", value, "</dd>"});
}

void addList(std::string& out, const Record& elements) {
    addLine(out, {"<dl>"});
    for (const auto& element : elements) {
        if (element.rule->kind != Kind::Group) {
            addValue(out, element);
            continue;
        }
        addLine(out, {"<dt>", element.rule->name, "</dt>"});
        addLine(out, {"<dd>"});
        addList(out, element.children);
        addLine(out, {"</dd>"});
    }
    addLine(out, {"</dl>"});
}

std::string titleOf(const Record& record, Language language) {
    const auto* const title = findIn(record, "Title");
    return escaped(title == nullptr || title->text.empty()
                       ? textOf(Message::UntitledRecord, language)
                       : textOf(*title));
}

std::string beginPage(std::string_view title, std::string_view ownPath, std::span<const Link> links,
                      Language language) {
    std::string out;
    addLine(out, {"<!DOCTYPE html>"});
    addLine(out, {R"(<html lang=")", codeOf(language), R"(">)"});
    addLine(out, {"<head>"});
    addLine(out, {R"(<meta charset="windows-1252">)"});
    // Paths stand as they were given: whoever moves the files looks for exactly them, and no file
    // name can end its quotation marks.
    addLine(out, {R"(<base href=")", ownPath, R"(">)"});
    addLine(out, {"<title>", title, "</title>"});
    addLine(out, {"</head>"});
    addLine(out, {"<body>"});
    addLine(out, {"<h1>", title, "</h1>"});
    if (!links.empty()) {
        addLine(out, {"<p>", textOf(Message::OtherOutputs, language), "</p>"});
        addLine(out, {"<ul>"});
        for (const auto& link : links) {
            addLine(out, {R"(<li><A HREF=")", link.path, R"(">)", link.caption, "</A></li>"});
        }
        addLine(out, {"</ul>"});
    }
    return out;
}

void endPage(std::string& out) {
    addLine(out, {"</body>"});
    addLine(out, {"</html>"});
}

void collectAnswers(const Record& elements, Message question,
                    std::vector<const Element*>& answers) {
    for (const auto& element : elements) {
        if (element.rule->question == question) {
            answers.push_back(&element);
        }
        collectAnswers(element.children, question, answers);
    }
}

} // namespace

std::string htmlPage(const Record& record, std::string_view ownPath, std::span<const Link> links,
                     Language language) {
    auto out = beginPage(titleOf(record, language), ownPath, links, language);
    addList(out, record);
    endPage(out);
    return out;
}

std::string faqPage(const Record& record, std::string_view ownPath, std::span<const Link> links,
                    Language language) {
    auto title = titleOf(record, language);
    title.append(" - ").append(textOf(Message::QuestionsAndAnswers, language));
    auto out = beginPage(title, ownPath, links, language);
    constexpr auto first = static_cast<int>(Message::AskWhat);
    constexpr auto last = static_cast<int>(Message::AskRecord);
    for (int number = first; number <= last; ++number) {
        const auto question = static_cast<Message>(number);
        std::vector<const Element*> answers;
        collectAnswers(record, question, answers);
        if (answers.empty()) {
            continue;
        }
        addLine(out, {"<h2>", escaped(textOf(question, language)), "</h2>"});
        addLine(out, {"<dl>"});
        for (const auto* const answer : answers) {
            addValue(out, *answer);
        }
        addLine(out, {"</dl>"});
    }
    endPage(out);
    return out;
}

} // namespace demo
