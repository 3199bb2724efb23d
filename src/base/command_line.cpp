// SPDX-License-Identifier: MIT
#include "base/command_line.h"

#include <algorithm>
#include <utility>

#include <CLI/Config.hpp>
#include <CLI/Formatter.hpp>

namespace onudesk {

namespace {

constexpr std::size_t kColumnWidth = 26;

class HelpFormatter : public CLI::Formatter {
public:
    HelpFormatter() {
        column_width(kColumnWidth);
        label("Usage", "usage");
        label("Positionals", "Arguments");
    }

    // The description of a whole program is its synopsis.
    std::string make_description(const CLI::App* line) const override {
        return line->get_parent() == nullptr ? std::string()
                                             : CLI::Formatter::make_description(line);
    }
    std::string make_usage(const CLI::App* line, std::string name) const override {
        return line->get_parent() == nullptr
                   ? "usage: " + name + ' ' + line->get_description() + '\n'
                   : CLI::Formatter::make_usage(line, std::move(name));
    }
    std::string make_help(const CLI::App* line, std::string name,
                          CLI::AppFormatMode mode) const override {
        std::string text = CLI::Formatter::make_help(line, std::move(name), mode);
        for (auto gap = text.find("\n\n\n"); gap != std::string::npos; gap = text.find("\n\n\n")) {
            text.erase(gap, 1);
        }
        text.erase(text.find_last_not_of('\n') + 2);
        return text;
    }
    std::string make_option_opts(const CLI::Option* option) const override {
        const std::string placeholder = option->get_type_name();
        const bool attached = placeholder.empty() || placeholder.starts_with('[');
        return option->get_positional() || attached ? placeholder : ' ' + placeholder;
    }
    std::string make_subcommand(const CLI::App* command) const override {
        std::string form = command->get_name();
        for (const CLI::Option* option : command->get_options()) {
            form += option->get_positional() ? ' ' + option->get_name() : std::string();
        }
        std::ostringstream text;
        CLI::detail::format_help(text, form, command->get_description(), column_width_);
        return text.str();
    }
};

// An option that never takes the next argument; the value is what follows "=", empty for nothing.
CLI::Option* addAlone(CLI::App& line, const std::string& name, const std::string& placeholder,
                      const std::string& help,
                      const std::function<void(const std::string& value)>& take) {
    const auto callback = [take](const CLI::results_t& values) {
        take(values.back());
        return true;
    };
    CLI::Option* const option = line.add_option(name, callback, help);
    return option->type_size(0)->type_name(placeholder)->take_last();
}

} // namespace

std::unique_ptr<CLI::App> makeCommandLine(const std::string& program, const std::string& synopsis) {
    auto line = std::make_unique<CLI::App>(synopsis, program);
    line->formatter(std::make_shared<HelpFormatter>());
    line->set_help_flag("-h,--help", "print this text");
    line->set_version_flag("--version", program + " " ONUDESK_VERSION, "print the version");
    line->fallthrough();
    return line;
}

CLI::Option* addValue(CLI::App& line, const std::string& name, const std::string& placeholder,
                      const std::string& help, const TakeValue& take) {
    const auto callback = [name, take](const std::string& value) {
        if (value.empty()) {
            throw CLI::ValidationError(name, "value missing");
        }
        if (const Result<void> taken = take(value); !taken) {
            throw CLI::ValidationError(name + ' ' + value, taken.error());
        }
    };
    CLI::Option* const option = line.add_option_function<std::string>(name, callback, help);
    return option->type_name(placeholder)->take_last();
}

CLI::Option* addFlag(CLI::App& line, const std::string& name, const std::string& help,
                     bool& given) {
    return addAlone(line, name, "", help, [name, &given](const std::string& value) {
        if (!value.empty()) {
            throw CLI::ValidationError(name, "takes no value");
        }
        given = true;
    });
}

CLI::Option* addOptionalFile(CLI::App& line, const std::string& name,
                             const std::string& placeholder, const std::string& help, bool& given,
                             std::optional<std::filesystem::path>& file) {
    return addAlone(line, name, "[=" + placeholder + "]", help,
                    [&given, &file](const std::string& value) {
                        given = true;
                        if (!value.empty()) {
                            file = std::filesystem::absolute(value);
                        }
                    });
}

Result<std::string> parseCommandLine(CLI::App& line, std::vector<std::string> arguments) {
    const auto cut = std::ranges::find_if(arguments, [](const std::string& argument) {
        return argument.starts_with("--") && argument.find('=') == argument.size() - 1;
    });
    if (cut != arguments.end()) {
        cut->pop_back();
        return Error{*cut + ": value missing"};
    }
    std::ranges::reverse(arguments); // as the library takes them
    try {
        line.parse(std::move(arguments));
    } catch (const CLI::CallForHelp&) {
        return line.help();
    } catch (const CLI::CallForVersion& version) {
        return std::string(version.what()) + '\n';
    } catch (const CLI::ParseError& error) {
        const std::vector<std::string> left = line.remaining(true);
        return Error{left.empty() ? error.what() : "unexpected argument " + left.front()};
    }
    return std::string();
}

} // namespace onudesk
