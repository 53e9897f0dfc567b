#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>

namespace demo {

// The languages of the tools' messages, in the order of the message table.
enum class Language { English, Spanish, Catalan, Indonesian, French };
inline constexpr std::size_t languageCount = 5;

// The language of a code ("en", "es", "ca", "id", "fr"; in any case); nothing for another text.
[[nodiscard]] std::optional<Language> languageOfCode(std::string_view code);
[[nodiscard]] std::string_view codeOf(Language language);

enum class Message {
    UsageIs,
    UnknownOption,
    OptionWithoutValue,
    OptionTwice,
    OptionMissing,
    InputMissing,
    SecondInput,
    CannotRead,
    CannotWrite,
    BadConfigurationLine,
    BadAliasLine,
    ReportHeading,
    ErrorAtLine,
    WarningAtLine,
    ErrorInRecord,
    ReportCut,
    ReportSummary,
    UnknownElement,
    BelongsUnder,
    BelongsAtTop,
    StrayText,
    GroupWithText,
    NoText,
    GivenTwice,
    MissingUnder,
    MissingAtTop,
    BadDate,
    BadNumber,
    OutOfRange,
    NotLess,
    NotEarlier,
    LongLine,
    RepairsHeading,
    RepairIndentation,
    RepairName,
    RepairAlias,
    RepairParent,
    RepairLeftOver,
    RepairsSummary,
    LeftoversHeading,
    LeftoverLine,
    LeftoversSummary,
    UntitledRecord,
    QuestionsAndAnswers,
    OtherOutputs,
    AskWhat,
    AskWho,
    AskWhy,
    AskWhen,
    AskWhere,
    AskSubject,
    AskQuality,
    AskAccess,
    AskContact,
    AskRecord,
};
inline constexpr std::size_t messageCount = static_cast<std::size_t>(Message::AskRecord) + 1;

// The message's text in code page 1252, with its place holders "{0}", "{1}", ...
[[nodiscard]] std::string_view textOf(Message message, Language language);

// The message with its place holders filled in. A value is never searched for place holders.
[[nodiscard]] std::string say(Language language, Message message,
                              std::initializer_list<std::string_view> values = {});

} // namespace demo
