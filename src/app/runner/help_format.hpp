#pragma once

#include <CLI/CLI.hpp>
#include <algorithm>
#include <string>
#include <string_view>

namespace tarnwick {

// What --help prints: no line is longer than a terminal is wide, and every option says in a word
// what it takes.
class HelpFormat : public CLI::Formatter {
  public:
    // The description begins with how the program is called.
    [[nodiscard]] std::string make_usage(const CLI::App* /*app*/,
                                         std::string /*name*/) const override {
        return {};
    }

    [[nodiscard]] std::string make_option(const CLI::Option* option,
                                          bool isPositional) const override {
        std::string name = "  " + make_option_name(option, isPositional);
        if (!isPositional && option->get_type_size() > 0) {
            const std::string taken = option->get_type_name(); // and behind ":" what is checked
            name += " " + taken.substr(0, taken.find(':'));
        }
        const std::string text = name.size() < column
                                     ? name + std::string(column - name.size(), ' ')
                                     : name + "\n" + std::string(column, ' ');
        return text + wrapped(option->get_description()) + "\n";
    }

  private:
    static constexpr std::size_t column = 30; // at which descriptions begin
    static constexpr std::size_t width = 79;

    static std::string wrapped(std::string_view description) {
        constexpr std::size_t most = width - column;
        std::string text;
        while (description.size() > most) {
            const auto blank = std::min(description.rfind(' ', most), description.size() - 1);
            text.append(description.substr(0, blank)).append("\n").append(column, ' ');
            description.remove_prefix(blank + 1);
        }
        return text.append(description);
    }
};

} // namespace tarnwick
