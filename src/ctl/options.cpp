// SPDX-License-Identifier: MIT
#include "ctl/options.h"

#include "base/numbers.h"

#include <map>
#include <utility>

#include <getopt.h>

namespace onudesk::ctl {

namespace {

namespace fs = std::filesystem;

enum LongOption : int {
    optSim = 256,
    optAgent,
    optOnu,
    optSub,
    optItem,
    optMenu,
    optClient,
    optLocale,
    optSecrets,
    optTrace,
    optJson,
    optWatch,
    optHelp,
    optVersion,
};

constexpr option kLongOptions[] = {
    {"sim", optional_argument, nullptr, optSim},
    {"agent", required_argument, nullptr, optAgent},
    {"onu", required_argument, nullptr, optOnu},
    {"sub", required_argument, nullptr, optSub},
    {"item", required_argument, nullptr, optItem},
    {"menu", required_argument, nullptr, optMenu},
    {"client", required_argument, nullptr, optClient},
    {"locale", required_argument, nullptr, optLocale},
    {"secrets", required_argument, nullptr, optSecrets},
    {"trace", required_argument, nullptr, optTrace},
    {"json", no_argument, nullptr, optJson},
    {"watch", no_argument, nullptr, optWatch},
    {"help", no_argument, nullptr, optHelp},
    {"version", no_argument, nullptr, optVersion},
    {nullptr, 0, nullptr, 0},
};

template <typename Number>
bool readCount(const std::string& text, Number& number) {
    const auto count = parseNumber<Number>(text);
    number = count.value_or(number);
    return count && *count >= 0;
}

bool readVersion(const std::string& text, host::SnmpVersion& version) {
    static const std::map<std::string, host::SnmpVersion> versions = {
        {"1", host::SnmpVersion::v1}, {"2c", host::SnmpVersion::v2c}, {"3", host::SnmpVersion::v3}};
    const auto found = versions.find(text);
    if (found == versions.end()) {
        return false;
    }
    version = found->second;
    return true;
}

Result<void> wrong(const std::string& name, const std::string& text, const std::string& wanted) {
    return Error{name + " " + text + ": must be " + wanted};
}

fs::path outputPath(const std::string& text) {
    return text == kStandardOutput ? fs::path(text) : fs::absolute(text);
}

Result<void> takeOption(int code, const std::string& text, Options& options) {
    host::OnuTarget& target = options.target;
    if (text.empty() && optarg != nullptr) {
        return Error{"an option has an empty value"};
    }
    switch (code) {
    case optSim:
        options.simulate = true;
        if (!text.empty()) {
            options.recording = fs::absolute(text);
        }
        return {};
    case optAgent:
        return host::parseAgent(text, target);
    case 'v':
        return readVersion(text, target.version) ? Result<void>() : wrong("-v", text, "1, 2c or 3");
    case optOnu:
        return host::parseOnuIndex(text, target)
                   ? Result<void>()
                   : wrong("--onu", text, "numbers as in OLT.PON.ONU");
    case optSub:
        return readCount(text, target.subIndex) ? Result<void>() : wrong("--sub", text, "a number");
    case optItem:
        return readCount(text, target.subUnitItemType) ? Result<void>()
                                                       : wrong("--item", text, "a number");
    case optMenu:
        target.menuFileName = text;
        return text.size() <= host::kMaxParamText ? Result<void>()
                                                  : wrong("--menu", text, "a shorter name");
    case optClient:
        options.clientDirectory = fs::absolute(text);
        return {};
    case optLocale:
        return readCount(text, target.localeId) ? Result<void>()
                                                : wrong("--locale", text, "a number");
    case optSecrets:
        options.secretsFile = fs::absolute(text);
        return {};
    case optTrace:
        options.traceFile = outputPath(text);
        return {};
    case optJson:
        options.json = true;
        return {};
    case optWatch:
        options.watch = true;
        return {};
    case optHelp:
        options.command = Command::help;
        return {};
    case optVersion:
        options.command = Command::version;
        return {};
    default:
        return Error{"unknown option or missing value; see onuctl --help"};
    }
}

Result<void> takeItem(const std::string& text, Options& options) {
    return readCount(text, options.item) ? Result<void>()
                                         : wrong("item", text, "an item type number");
}

Result<void> takeCommand(const std::vector<std::string>& words, Options& options) {
    if (words.empty()) {
        return Error{"no command; see onuctl --help"};
    }
    const std::string& name = words.front();
    const std::size_t arguments = words.size() - 1;
    if (name == "items" && arguments == 0) {
        options.command = Command::items;
        return {};
    }
    if (name == "show" && arguments == 1) {
        options.command = Command::show;
        return takeItem(words[1], options);
    }
    if (name == "screenshot" && arguments == 2) {
        if (words[2].empty()) {
            return Error{"screenshot: the file has no name"};
        }
        options.command = Command::screenshot;
        options.outputFile = fs::absolute(words[2]);
        return takeItem(words[1], options);
    }
    if (name == "run" && arguments == 1) {
        if (words[1].empty()) {
            return Error{"run: the script has no name"};
        }
        options.command = Command::run;
        options.scriptFile =
            words[1] == kStandardInput ? fs::path(words[1]) : fs::absolute(words[1]);
        return {};
    }
    return Error{"unknown command or wrong number of arguments: " + name + "; see onuctl --help"};
}

Result<void> checkConnection(const Options& options) {
    const host::OnuTarget& target = options.target;
    if (options.simulate == !target.agentAddress.empty()) {
        return Error{"give either --sim or --agent"};
    }
    if ((target.subIndex >= 0) != (target.subUnitItemType > 0)) {
        return Error{"--sub and --item go together"};
    }
    if (options.watch && options.command != Command::run) {
        return Error{"--watch goes with run only"};
    }
    return {};
}

} // namespace

Result<Options> parseOptions(const std::vector<std::string>& arguments) {
    std::vector<std::string> copies = arguments;
    copies.insert(copies.begin(), "onuctl");
    std::vector<char*> pointers;
    pointers.reserve(copies.size() + 1);
    for (std::string& argument : copies) {
        pointers.push_back(argument.data());
    }
    pointers.push_back(nullptr);

    Options options;
    options.target.menuFileName = "epononuother_menu.xml";
    options.clientDirectory = host::ownClientDirectory();
    const int count = static_cast<int>(copies.size());
    optind = 0; // a fresh start, whatever was parsed before
    opterr = 0;
    for (int code = 0;
         (code = ::getopt_long(count, pointers.data(), "+v:", kLongOptions, nullptr)) != -1;) {
        const Result<void> taken =
            takeOption(code, optarg == nullptr ? std::string() : std::string(optarg), options);
        if (!taken) {
            return Error{taken.error()};
        }
        if (code == optHelp || code == optVersion) {
            return options;
        }
    }
    // Global options may also follow the command.
    std::vector<std::string> words;
    for (const std::string& word : std::vector(copies.begin() + optind, copies.end())) {
        if (word == "--json") {
            options.json = true;
        } else if (word == "--watch") {
            options.watch = true;
        } else {
            words.push_back(word);
        }
    }
    for (const Result<void>& step : {takeCommand(words, options), checkConnection(options)}) {
        if (!step) {
            return Error{step.error()};
        }
    }
    return options;
}

std::string usageText() {
    return R"(usage: onuctl [CONNECTION] [OPTION]... COMMAND

Connection:
  --sim[=FILE.snmprec]    a private simulated agent on a free loopback port
  --agent HOST[:PORT]     a real agent
  -v 1|2c|3               SNMP version (2c)
  --onu OLT.PON.ONU       the ONU
  --sub N --item TYPE     show one page of one sub-index
  --menu FILE             menu file below CONF/snmp (epononuother_menu.xml)
  --client DIR            client tree (the one onuctl is in)
  --locale ID             Windows locale identifier of the texts (1033)
  --secrets FILE          communities and SNMPv3 pass phrases, mode 0600

Options:
  --trace FILE|-          one JSON line per request and reply
  --json                  print JSON
  --watch                 tell every step of a script on standard error
  --help, --version

Commands:
  items                   list the configuration items
  show ITEM               read a page and print its controls
  screenshot ITEM FILE    read a page and save a picture of the window
  run FILE|-              work the window by a script
)";
}

} // namespace onudesk::ctl
