// SPDX-License-Identifier: MIT
//
// Documents that are written when the project is built: what is missing or too much stops it.
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

} // namespace
} // namespace onudesk
