// SPDX-License-Identifier: MIT
//
// Documents that are written when the project is built: what is missing or too much stops it.
#include "doc/help_book.h"
#include "doc/objects_document.h"

#include <string>
#include <tuple>

#include <gtest/gtest.h>

namespace onudesk {
namespace {

TEST(ObjectsDocument, JoinsMeaningsWithTheCatalogueAndNamesWhatDoesNotFit) {
    const Result<XmlDocument> xml = parseXml(R"(<snmpconfig><module name="7">
        <group name="main" read="table" per="port" port="1" model="m">
          <object name="a" oidstr="1.7.1.1" type="4" size="0..8" access="read-create" row="s"/>
          <object name="b" oidstr="1.8.1.5" type="2" range="3" unique="yes"/></group>
        <group name="rowstat"><object name="s" oidstr="1.7.2.1" type="2" row="s"/></group>
        </module><module name="8"/></snmpconfig>)",
                                             "catalogue");
    ASSERT_TRUE(xml) << xml.error();
    const Result<CatalogueSchema> catalogue = readSchema(*(*xml)->RootElement());
    ASSERT_TRUE(catalogue) << catalogue.error();
    const std::string good = "## Module 7: x\n### main\n- a: first\n  thing\n- b: second\n\n"
                             "Prose.\n### rowstat\n- s: third\n## Module 8: y\n";
    const Result<std::string> document = objectsDocument(good, *catalogue);
    ASSERT_TRUE(document) << document.error();
    const std::string rows =
        "| 0 | 1 | `a` | OCTET STRING, up to 8 bytes | read-create, in the row "
        "of `s` | first thing |\n| 1 | 1.8.1.5 of item 8 | `b` | INTEGER, 3 | "
        "read-only, unique | second |\n\nProse.\nGroup `rowstat` (1.7.2), only";
    EXPECT_NE(document->find(rows), std::string::npos) << *document;
    EXPECT_NE(
        document->find("Group `main` (1.7.1), rows of a table, read per port, port 1 when none "
                       "is named, model `m`.\n"),
        std::string::npos);
    for (const auto& [part, instead, problem] :
         {std::tuple{"- b: second\n", "", "7 b has no meaning"},
          {"- b: ", "- c: more\n- b: ", "7 main has no object c"},
          {"- b: ", "- a: more\n- b: ", "a is explained twice"},
          {"### rowstat\n- s: third\n", "", "7 rowstat is not described"},
          {"- s: third\n", "", "rowstat has no list of objects"},
          {"### rowstat", "### other", "module 7 has no group other"},
          {"## Module 8: y\n", "", "module 8 is not described"},
          {"Module 8", "Modules 8 and 9", "there is no module 9"},
          {"Module 8", "Modules 8 and 7", "module 7 is described twice"}}) {
        std::string source = good;
        source.replace(source.find(part), std::string(part).size(), instead);
        const Result<std::string> refused = objectsDocument(source, *catalogue);
        ASSERT_FALSE(refused) << problem;
        EXPECT_NE(refused.error().find(problem), std::string::npos) << refused.error();
    }
}

// A topic for item 616 in two languages, both with the English texts.
std::vector<HelpSources> helpSources() {
    const std::map<std::string, std::string> topics{
        {"standard", "contents: All\nfr: Autre\nen: Other\nbuttons: Buttons\nmessages: Messages\n"
                     "config: Writes.\nrange: Out of it.\nsent: Done.\n"},
        {"index", "# Book\n\n{topics}\n"},
        {"fec", "key 6221\ncontents F & G\n# FEC\n\n{61601} :: **bold** [x](index)\n  more\n\n"
                "? {3110}\nBy hand.\n? {11045}{11002}\n+ Now.\n! {11068:1,6}\n"}};
    const auto texts =
        LanguageModule::load(std::string(ONUDESK_SOURCE_DIR) + "/client/lang/libonuconfig.ENU");
    return {{topics, ".htm", "en", *texts}, {topics, ".fr.htm", "fr", *texts}};
}

TEST(HelpBook, JoinsExplanationsWithThePagesAndNamesWhatDoesNotFit) {
    const std::map<int, TopicFacts> facts{{6221,
                                           {{616},
                                            {{"{20001}", "config"}},
                                            {{"{11068:1,5}", "range"}, {"{11068:1,6}", "range"}},
                                            {{"{11045}{11002}", "sent"}},
                                            {61601}}}};
    const std::vector<MenuItem> menu{{5008, {{616}}}};
    const Result<HelpBook> book = writeHelpBook(helpSources(), facts, menu);
    ASSERT_TRUE(book) << book.error();
    EXPECT_EQ(book->at("confighelp.txt"), "6221=fec.htm\tx FEC\n6221=fec.fr.htm\tx FEC\n");
    for (const auto& [file, part] :
         {std::pair{"index.htm", "<h3>PON Link</h3>\n<ul>\n<li><a href=\"fec.htm\">F &amp; G</a>"},
          {"fec.fr.htm", "<a href=\"index.fr.htm\">All</a> | <a href=\"fec.htm\">Other</a>"},
          {"fec.htm",
           "<td><b>Fec support</b></td><td><b>bold</b> <a href=\"index.htm\">x</a>\nmore"},
          {"fec.htm",
           "<h2>Buttons</h2>\n<table border=\"1\" cellspacing=\"0\" cellpadding=\"4\">\n"
           "<tr><td><b>Config</b></td><td>Writes.</td></tr>\n</table>\n\n"
           "<h2>Messages</h2>\n<dl>\n<dt><b>This ONU does not support encryption.</b></dt>\n"
           "<dd>By hand.</dd>\n<dt><b>Enter a value from 1 to 5.</b></dt>\n"
           "<dd>Out of it.</dd>\n<dt><b>Succeeded: ONU configuration</b></dt>\n"
           "<dd>Done.</dd>\n<dd>Now.</dd>\n</dl>\n"}}) {
        EXPECT_NE(book->at(file).find(part), std::string::npos) << book->at(file);
    }
    for (const auto& [topic, part, instead, problem] :
         {std::tuple{"fec", "{61601} ::", "x ::", "en/fec: does not explain {61601}"},
          {"fec", "key 6221", "", "no topic has the key 6221"},
          {"fec", "6221", "6222", "no page has the key 6222"},
          {"fec", "{3110}", "{3109}", "there is no text 3109"},
          {"fec", "{3110}", "{20004}", "explains {20004}, which is none of its buttons"},
          {"fec", "By hand.", "", "en/fec: does not explain {3110}"},
          {"fec", "! ", "! {3111}\n! ", "would not show {3111} anyhow"},
          {"fec", "(index)", "(other)", "there is no topic other"},
          {"standard", "contents", "other", "there is no standard explanation contents"},
          {"standard", "config", "other", "does not explain {20001}"}}) {
        std::vector<HelpSources> sources = helpSources();
        std::string& source = sources[0].topics[topic];
        source.replace(source.find(part), std::string(part).size(), instead);
        const Result<HelpBook> refused = writeHelpBook(sources, facts, menu);
        ASSERT_FALSE(refused) << problem;
        EXPECT_NE(refused.error().find(problem), std::string::npos) << refused.error();
    }
}

} // namespace
} // namespace onudesk
