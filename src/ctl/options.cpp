// SPDX-License-Identifier: MIT
#include "ctl/options.h"

#include "base/command_line.h"
#include "base/numbers.h"

#include <map>

namespace onudesk::ctl {

namespace {

namespace fs = std::filesystem;

constexpr const char* kItemType = "an item type number";

Result<void> must(bool is, const char* wanted) {
    return is ? Result<void>() : Error{std::string("must be ") + wanted};
}

template <typename Number>
TakeValue toNumber(Number& number, const char* wanted = "a number", Number least = 0) {
    return [&number, wanted, least](const std::string& text) {
        const auto taken = parseNumber<Number>(text);
        number = taken.value_or(number);
        return must(taken && *taken >= least, wanted);
    };
}

template <typename Path>
TakeValue toFileOrStream(Path& path, const char* stream) {
    return [&path, stream](const std::string& text) {
        path = text == stream ? fs::path(text) : fs::absolute(text);
        return Result<void>();
    };
}

void addConnection(CLI::App& line, Options& options) {
    host::OnuTarget& target = options.target;
    line.option_defaults()->group("Connection");
    addOptionalFile(line, "--sim", "FILE.snmprec",
                    "a private simulated agent on a free loopback port", options.simulate,
                    options.recording);
    addValue(line, "--agent", "HOST[:PORT]", "a real agent",
             [&target](const std::string& text) { return host::parseAgent(text, target); });
    addValue(line, "-v", "1|2c|3", "SNMP version (2c)", [&target](const std::string& text) {
        static const std::map<std::string, host::SnmpVersion> versions = {
            {"1", host::SnmpVersion::v1},
            {"2c", host::SnmpVersion::v2c},
            {"3", host::SnmpVersion::v3}};
        const auto found = versions.find(text);
        target.version = found == versions.end() ? target.version : found->second;
        return must(found != versions.end(), "1, 2c or 3");
    });
    addValue(line, "--onu", "OLT.PON.ONU", "the ONU", [&target](const std::string& text) {
        return must(host::parseOnuIndex(text, target), "numbers as in OLT.PON.ONU");
    });
    CLI::Option* const sub =
        addValue(line, "--sub", "N", "show one page of one sub-index,", toNumber(target.subIndex));
    CLI::Option* const item = addValue(line, "--item", "TYPE", "that of this item type",
                                       toNumber(target.subUnitItemType, kItemType, 1));
    sub->needs(item);
    item->needs(sub);
    addValue(line, "--menu", "FILE", "menu file below CONF/snmp (epononuother_menu.xml)",
             [&target](const std::string& text) {
                 target.menuFileName = text;
                 return must(text.size() <= host::kMaxParamText, "a shorter name");
             });
    addValue(line, "--client", "DIR", "client tree (the one onuctl is in)",
             toFile(options.clientDirectory));
    addValue(line, "--locale", "ID", "Windows locale identifier of the texts (1033)",
             toNumber(target.localeId));
    addValue(line, "--secrets", "FILE", "communities and SNMPv3 pass phrases, mode 0600",
             toFile(options.secretsFile));
}

void addOutput(CLI::App& line, Options& options) {
    line.option_defaults()->group("Options");
    addValue(line, "--trace", "FILE|-", "one JSON line per request and reply",
             toFileOrStream(options.traceFile, kStandardOutput));
    addFlag(line, "--json", "print JSON", options.json);
    addFlag(line, "--watch", "tell every step of a script on standard error", options.watch);
}

void addCommands(CLI::App& line, Options& options) {
    const auto add = [&](const char* name, const char* help, Command command) {
        CLI::App* const added = line.add_subcommand(name, help);
        added->group("Commands");
        added->callback([&options, command] { options.command = command; });
        return added;
    };
    const auto withItem = [&](CLI::App& command) {
        addValue(command, "ITEM", "", "item type", toNumber(options.item, kItemType))->required();
    };
    line.require_subcommand(0, 1);
    add("items", "list the configuration items", Command::items);
    withItem(*add("show", "read a page and print its controls", Command::show));
    CLI::App* const picture =
        add("screenshot", "read a page and save a picture of the window", Command::screenshot);
    withItem(*picture);
    addValue(*picture, "FILE", "", "the picture, as PNG", toFile(options.outputFile))->required();
    addValue(*add("run", "work the window by a script", Command::run), "FILE", "",
             "the script, - for standard input", toFileOrStream(options.scriptFile, kStandardInput))
        ->required();
}

} // namespace

Result<Options> parseOptions(const std::vector<std::string>& arguments) {
    Options options;
    options.target.menuFileName = "epononuother_menu.xml";
    options.clientDirectory = host::ownClientDirectory();
    const auto line = makeCommandLine("onuctl", "[CONNECTION] [OPTION]... COMMAND");
    addConnection(*line, options);
    addOutput(*line, options);
    addCommands(*line, options);
    Result<std::string> text = parseCommandLine(*line, arguments);
    if (!text) {
        return Error{text.error()};
    }
    options.text = std::move(text).value();
    if (!options.text.empty()) {
        return options;
    }
    if (line->get_subcommands().empty()) {
        return Error{"no command; see onuctl --help"};
    }
    if (options.simulate == !options.target.agentAddress.empty()) {
        return Error{"give either --sim or --agent"};
    }
    if (options.watch && options.command != Command::run) {
        return Error{"--watch goes with run only"};
    }
    return options;
}

} // namespace onudesk::ctl
