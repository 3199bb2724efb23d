// SPDX-License-Identifier: MIT
//
// document_writer objects SOURCE CATALOGUE OUTPUT
//
// Writes what the documents say that the code and its data know. Part of the build.
#include "doc/objects_document.h"
#include "env/xml_file.h"

#include <filesystem>
#include <fstream>
#include <iostream>
#include <span>
#include <string>

namespace onudesk {
namespace {

int fail(const std::string& what) {
    std::cerr << "document_writer: " << what << "\n";
    return 1;
}

int writeObjects(const std::filesystem::path& source, const std::filesystem::path& catalogue,
                 const std::filesystem::path& output) {
    const Result<std::string> text = readFile(source);
    if (!text) {
        return fail(text.error());
    }
    const Result<CatalogueSchema> schema = loadSchema(catalogue);
    if (!schema) {
        return fail(schema.error());
    }
    const Result<std::string> document = objectsDocument(*text, *schema);
    if (!document) {
        return fail(source.string() + ":\n" + document.error());
    }
    std::ofstream file(output, std::ios::binary);
    file << *document << std::flush;
    return file ? 0 : fail("cannot write " + output.string());
}

} // namespace
} // namespace onudesk

int main(int argc, char** argv) {
    const std::span arguments(argv, static_cast<std::size_t>(argc));
    if (argc == 5 && std::string(arguments[1]) == "objects") {
        return onudesk::writeObjects(arguments[2], arguments[3], arguments[4]);
    }
    return onudesk::fail("usage: document_writer objects SOURCE CATALOGUE OUTPUT");
}
