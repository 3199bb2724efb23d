// SPDX-License-Identifier: MIT
//
// document_writer objects SOURCE CATALOGUE OUTPUT
// document_writer help SOURCES CLIENT OUTPUT
// document_writer pictures STEPS CLIENT OUTPUT
//
// Writes what documents and help topics say that the code and its data know. Part of the build.
#include "base/file.h"
#include "doc/help_book.h"
#include "doc/objects_document.h"
#include "doc/picture_script.h"
#include "doc/topic_facts.h"
#include "env/xml_file.h"
#include "mainform/page_table.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <map>
#include <span>
#include <string>
#include <tuple>
#include <utility>
#include <vector>

#include <QApplication>

namespace onudesk {
namespace {

namespace fs = std::filesystem;

Result<void> writeFile(const fs::path& path, const std::string& contents) {
    std::ofstream file(path, std::ios::binary);
    file << contents << std::flush;
    return file ? Result<void>() : Error{"cannot write " + path.string()};
}

Result<void> writeObjects(const fs::path& source, const fs::path& catalogue,
                          const fs::path& output) {
    const Result<std::string> text = readFile(source);
    if (!text) {
        return Error{text.error()};
    }
    const Result<CatalogueSchema> schema = loadSchema(catalogue);
    if (!schema) {
        return Error{schema.error()};
    }
    const Result<std::string> document = objectsDocument(*text, *schema);
    if (!document) {
        return Error{source.string() + ":\n" + document.error()};
    }
    return writeFile(output, *document);
}

Result<HelpSources> readSources(const fs::path& folder, const fs::path& texts, const char* tag,
                                const char* suffix) {
    Result<LanguageModule> module = LanguageModule::load(texts);
    if (!module) {
        return Error{module.error()};
    }
    HelpSources sources{{}, suffix, tag, std::move(module).value()};
    for (const auto& entry : fs::directory_iterator(folder)) {
        Result<std::string> text = readFile(entry.path());
        if (!text) {
            return Error{text.error()};
        }
        sources.topics[entry.path().stem().string()] = std::move(text).value();
    }
    return sources;
}

// Makes the client tree that of this process, for pages that look for their catalogue. Its menu.
Result<std::vector<MenuItem>> enterClient(const fs::path& client, LanguageModule texts) {
    const Result<XmlDocument> menu = loadXml(client / "CONF" / "snmp" / kFallbackMenu);
    if (!menu) {
        return Error{menu.error()};
    }
    fs::current_path(client / "bin");
    installLanguage(std::move(texts));
    return readMenu(*(*menu)->RootElement(), {}).items;
}

// CLIENT has the menu and the texts; OUTPUT gets the folder and the index of the book.
Result<void> writeHelp(const fs::path& folder, const fs::path& client, const fs::path& output) {
    std::vector<HelpSources> languages;
    for (const auto& [name, tag, suffix, texts] :
         {std::tuple{"en", "en", ".htm", "libonuconfig.ENU"},
          {"zh", "zh-CN", ".zh.htm", "libonuconfig.CHS"}}) {
        Result<HelpSources> sources =
            readSources(folder / name, client / "bin" / texts, tag, suffix);
        if (!sources) {
            return Error{sources.error()};
        }
        languages.push_back(std::move(sources).value());
    }
    const Result<std::vector<MenuItem>> menu = enterClient(client, languages.front().texts);
    if (!menu) {
        return Error{menu.error()};
    }
    const Result<HelpBook> book = writeHelpBook(languages, topicFacts(describePages()), *menu);
    if (!book) {
        return Error{folder.string() + ":\n" + book.error()};
    }
    fs::remove_all(output / "confighelp"); // topics that are no more
    fs::create_directories(output / "confighelp");
    for (const auto& [name, contents] : *book) {
        auto written =
            writeFile((name.ends_with(".txt") ? output : output / "confighelp") / name, contents);
        if (!written) {
            return written;
        }
    }
    return {};
}

Result<void> writePictures(const fs::path& steps, const fs::path& client, const fs::path& output) {
    const Result<std::string> text = readFile(steps);
    if (!text) {
        return Error{text.error()};
    }
    const Result<std::vector<MenuItem>> menu = enterClient(client, {});
    if (!menu) {
        return Error{menu.error()};
    }
    return writeFile(output, pictureScript(*menu, describePages(), *text));
}

int run(int argc, char** argv) {
    const QApplication application(argc, argv); // pages are widgets
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    const std::map<std::string, decltype(&writeHelp)> writers{
        {"objects", writeObjects}, {"help", writeHelp}, {"pictures", writePictures}};
    const auto writer = writers.find(argc == 5 ? arguments[1] : "");
    if (writer == writers.end()) {
        std::cerr << "usage: document_writer objects SOURCE CATALOGUE OUTPUT\n"
                     "       document_writer help SOURCES CLIENT OUTPUT\n"
                     "       document_writer pictures STEPS CLIENT OUTPUT\n";
        return 2;
    }
    const Result<void> written = writer->second(
        fs::absolute(arguments[2]), fs::absolute(arguments[3]), fs::absolute(arguments[4]));
    if (!written) {
        std::cerr << "document_writer: " << written.error() << "\n";
    }
    return written ? 0 : 1;
}

} // namespace
} // namespace onudesk

int main(int argc, char** argv) {
    return onudesk::run(argc, argv);
}
