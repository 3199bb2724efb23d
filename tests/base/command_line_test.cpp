// SPDX-License-Identifier: MIT
//
// The command lines of all three programs: what is taken, told in full, or why nothing is.
#include "ctl/options.h"
#include "desk/options.h"
#include "sim/options.h"

#include <sstream>

#include <gtest/gtest.h>

namespace onudesk {
namespace {

using File = std::optional<std::filesystem::path>;

// Separated by blanks; '' stands for an empty one.
std::vector<std::string> words(const std::string& line) {
    std::istringstream all(line);
    std::vector<std::string> list;
    for (std::string word; all >> word;) {
        list.push_back(word == "''" ? std::string() : word);
    }
    return list;
}

std::string option(const char* name, const File& file) {
    return file ? std::string(name) + file->string() : std::string();
}

std::string simulator(bool simulate, const File& recording) {
    return simulate ? " --sim" + option("=", recording) : std::string();
}

std::string told(const ctl::Options& options) {
    const host::OnuTarget& target = options.target;
    std::ostringstream text;
    text << simulator(options.simulate, options.recording);
    if (!target.agentAddress.empty()) {
        text << " --agent " << target.agentAddress << ':' << target.port;
    }
    text << " -v " << static_cast<int>(target.version) << " --onu " << target.oltNumber << '.'
         << target.ponNumber << '.' << target.onuNumber;
    if (target.subIndex >= 0) {
        text << " --sub " << target.subIndex << " --item " << target.subUnitItemType;
    }
    text << " --menu " << target.menuFileName << " --locale " << target.localeId
         << option(" --secrets ", options.secretsFile) << option(" --trace ", options.traceFile)
         << (options.json ? " --json" : "") << (options.watch ? " --watch" : "");
    constexpr const char* names[] = {" items", " show ", " screenshot ", " run "};
    text << names[static_cast<int>(options.command)];
    text << (options.item != 0 ? std::to_string(options.item) + ' ' : std::string())
         << options.outputFile.string() << options.scriptFile.string();
    return text.str();
}

std::string told(const desk::Options& options) {
    return simulator(options.simulate, options.recording) + option(" --client ", options.client) +
           option(" --inventory ", options.inventory) +
           (options.localeId ? " --locale " + std::to_string(*options.localeId) : std::string());
}

std::string told(const sim::Options& options) {
    return " --listen " + options.listen.text() + " --catalogue " + options.catalogue +
           " --access " + options.access + " --save " + options.save +
           (options.withParent ? " --with-parent " : " ") + options.recording;
}

template <typename Options>
std::string outcome(const Result<Options>& options) {
    if (!options) {
        return "refused: " + options.error();
    }
    std::string text = options->text.empty() ? told(*options) : options->text;
    const std::string here = std::filesystem::current_path().string();
    for (auto at = text.find(here); at != std::string::npos; at = text.find(here)) {
        text.replace(at, here.size(), ".");
    }
    return text.substr(text.starts_with(' ') ? 1 : 0);
}

std::string outcomeOf(const std::string& line) {
    std::vector<std::string> arguments = words(line);
    const std::string program = arguments.front();
    arguments.erase(arguments.begin());
    return program == "onuctl"    ? outcome(ctl::parseOptions(arguments))
           : program == "onudesk" ? outcome(desk::parseOptions(arguments))
                                  : outcome(sim::parseOptions(arguments));
}

TEST(CommandLine, IsTakenWhole) {
    const std::string kPlain = "--menu epononuother_menu.xml --locale 1033 ";
    const std::string kSim = "--sim -v 1 --onu -1.-1.-1 " + kPlain;
    const std::pair<const char*, std::string> rows[] = {
        {"onuctl --agent 192.0.2.7:1161 -v 3 --onu 1.2.5 --menu m.xml --locale 2052 --secrets /s "
         "--trace - --json show 606",
         "--agent 192.0.2.7:1161 -v 3 --onu 1.2.5 --menu m.xml --locale 2052 --secrets /s "
         "--trace - --json show 606 "},
        {"onuctl --agent=127.0.0.1 -v1 --onu=1.2 items --json",
         "--agent 127.0.0.1:161 -v 0 --onu 1.2.-1 " + kPlain + "--json items"},
        {"onuctl --sim=/r.snmprec screenshot 606 p.png",
         "--sim=/r.snmprec -v 1 --onu -1.-1.-1 " + kPlain + "screenshot 606 ./p.png"},
        {"onuctl --sim --sim=r --sub 7 --item 617 --trace=t show 617",
         "--sim=./r -v 1 --onu -1.-1.-1 --sub 7 --item 617 " + kPlain + "--trace ./t show 617 "},
        {"onuctl --sim run s.onu --watch", kSim + "--watch run ./s.onu"},
        {"onuctl --watch --json run - --sim", kSim + "--json --watch run -"},
        {"onuctl --sim run items", kSim + "run ./items"},
        {"onuctl --version", "onuctl 0.1.0\n"},
        {"onudesk", ""},
        {"onudesk --client /c --inventory=/i/x=y.json --locale 2052",
         "--client /c --inventory /i/x=y.json --locale 2052"},
        {"onudesk --sim", "--sim"},
        {"onudesk --sim=my.snmprec", "--sim=./my.snmprec"},
        {"onudesk --version", "onudesk 0.1.0\n"},
        {"onusim --listen 192.0.2.1:161 --catalogue=c.xml --access a rec --save=s=1 --with-parent",
         "--listen 192.0.2.1:161 --catalogue c.xml --access a --save s=1 --with-parent rec"},
        {"onusim rec", "--listen 127.0.0.1:0 --catalogue  --access  --save  rec"},
        {"onusim --version", "onusim 0.1.0\n"},
    };
    for (const auto& [line, expected] : rows) {
        EXPECT_EQ(outcomeOf(line), expected) << line;
    }
    for (const char* line : {"onuctl --sim --help", "onudesk -h", "onusim --access a --help"}) {
        const std::string program = words(line).front();
        EXPECT_TRUE(outcomeOf(line).starts_with("usage: " + program + " [")) << outcomeOf(line);
    }
}

TEST(CommandLine, NamesWhatIsWrong) {
    const std::string longName(101, 'm');
    const std::pair<std::string, const char*> rows[] = {
        {"onuctl", "no command"},
        {"onuctl --sim", "no command"},
        {"onuctl show 606", "give either --sim or --agent"},
        {"onuctl --sim --agent 10.0.0.1 show 606", "give either --sim or --agent"},
        {"onuctl --sim show", "ITEM is required"},
        {"onuctl --sim show 606 607", "unexpected argument 607"},
        {"onuctl --sim show basic", "ITEM basic: must be an item type number"},
        {"onuctl --sim show -606", "ITEM -606: must be an item type number"},
        {"onuctl --sim paint 606", "unexpected argument paint"},
        {"onuctl --sim --onu 1.2.x items", "--onu 1.2.x: must be"},
        {"onuctl --sim --onu 1.2.3.4 items", "--onu 1.2.3.4: must be"},
        {"onuctl --sim --onu 1..3 items", "--onu 1..3: must be"},
        {"onuctl --sim -v 2 items", "-v 2: must be 1, 2c or 3"},
        {"onuctl --sim --locale english items", "--locale english: must be a number"},
        {"onuctl --sim --sub 7 items", "--sub requires --item"},
        {"onuctl --sim --item 617 items", "--item requires --sub"},
        {"onuctl --sim --sub 7 --item 0 items", "--item 0: must be"},
        {"onuctl --agent 10.0.0.1:0 items", "--agent 10.0.0.1:0: "},
        {"onuctl --agent 10.0.0.1:99999 items", "--agent 10.0.0.1:99999: "},
        {"onuctl --sim --password x items", "unexpected argument --password"},
        {"onuctl --sim --json=x items", "--json: takes no value"},
        {"onuctl --agent", "--agent: 1 required HOST[:PORT] missing"},
        {"onuctl --sim --secrets '' items", "--secrets: value missing"},
        {"onuctl --sim --trace= items", "--trace: value missing"},
        {"onuctl --sim screenshot 606 ''", "FILE: value missing"},
        {"onuctl --sim run", "FILE is required"},
        {"onuctl --sim run ''", "FILE: value missing"},
        {"onuctl --sim --watch show 606", "--watch goes with run only"},
        {"onuctl --sim --menu " + longName + " items", "--menu"},
        {"onudesk --simulate", "unexpected argument --simulate"},
        {"onudesk file.json", "unexpected argument file.json"},
        {"onudesk --sim my.snmprec", "unexpected argument my.snmprec"},
        {"onudesk --sim=", "--sim: value missing"},
        {"onudesk --client", "--client: 1 required DIR missing"},
        {"onudesk --inventory ''", "--inventory: value missing"},
        {"onudesk --locale en", "--locale en: must be the number of a language"},
        {"onudesk --locale 1", "--locale 1: must be the number of a language"},
        {"onudesk --locale 1033x", "--locale 1033x: must be the number of a language"},
        {"onudesk --sim --inventory f", "--sim excludes --inventory"},
        {"onusim", "RECORDING.snmprec is required"},
        {"onusim a b", "unexpected argument b"},
        {"onusim --lisen a", "unexpected argument --lisen"},
        {"onusim --with-parent=1 a", "--with-parent: takes no value"},
        {"onusim a --access", "--access: 1 required FILE missing"},
        {"onusim --save= a", "--save: value missing"},
        {"onusim --listen 1161 a", "--listen 1161: must be an IPv4 address and a port"},
        {"onusim --listen localhost:1161 a", "--listen localhost:1161: must be"},
        {"onusim --listen 127.0.0.1:65536 a", "--listen 127.0.0.1:65536: must be"},
        {"onusim --listen 127.0.0.1: a", "--listen 127.0.0.1:: must be"},
        {"onusim --listen 127.0.0.1:1x a", "--listen 127.0.0.1:1x: must be"},
    };
    for (const auto& [line, reason] : rows) {
        const std::string text = outcomeOf(line);
        EXPECT_TRUE(text.starts_with("refused: ")) << line << ": " << text;
        EXPECT_NE(text.find(reason), std::string::npos) << line << ": " << text;
        EXPECT_EQ(text.find('\n'), std::string::npos) << line << ": " << text;
    }
}

} // namespace
} // namespace onudesk
