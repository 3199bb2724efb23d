// SPDX-License-Identifier: MIT
#include "desk/options.h"

#include "base/command_line.h"
#include "base/numbers.h"
#include "platform/files.h"

namespace onudesk::desk {

namespace {

Result<void> takeLocale(const std::string& text, Options& options) {
    const auto locale = parseNumber<std::uint32_t>(text);
    if (!locale || platform::localeAbbreviation(*locale).empty()) {
        return Error{"must be the number of a language, such as 1033"};
    }
    options.localeId = locale;
    return {};
}

} // namespace

Result<Options> parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    const auto line = makeCommandLine("onudesk", "[OPTION]... [Qt options]");
    CLI::Option* const sim = addOptionalFile(*line, "--sim", "FILE.snmprec",
                                             "list the ONUs of a private simulated agent",
                                             options.simulate, options.recording);
    addValue(*line, "--client", "DIR", "client tree; that of the program when not given",
             toFile(options.client));
    addValue(*line, "--inventory", "FILE",
             "list of ONUs; onudesk/inventory.json in the user's\n"
             "configuration directory when not given",
             toFile(options.inventory))
        ->excludes(sim);
    addValue(*line, "--locale", "ID",
             "language, such as 1033 (English) or 2052 (Simplified Chinese)",
             [&options](const std::string& text) { return takeLocale(text, options); });
    Result<std::string> text = parseCommandLine(*line, arguments);
    if (!text) {
        return Error{text.error()};
    }
    options.text = std::move(text).value();
    return options;
}

} // namespace onudesk::desk
