// SPDX-License-Identifier: MIT
#include "env/language_module.h"

#include "base/numbers.h"
#include "env/xml_file.h"
#include "platform/desktop.h"
#include "platform/files.h"

#include <utility>

namespace onudesk {

namespace {

LanguageModule& current() {
    static LanguageModule module;
    return module;
}

} // namespace

Result<LanguageModule> LanguageModule::load(const std::filesystem::path& path) {
    const Result<XmlDocument> document = loadXml(path);
    if (!document) {
        return Error{document.error()};
    }
    LanguageModule module;
    for (const TiXmlElement* element = (*document)->RootElement()->FirstChildElement("text");
         element != nullptr; element = element->NextSiblingElement("text")) {
        const char* text = element->GetText();
        module.texts_.try_emplace(leadingInteger(attribute(*element, "id")),
                                  text == nullptr ? "" : text);
    }
    return module;
}

const std::string& LanguageModule::text(int id) const {
    static const std::string empty;
    const auto found = texts_.find(id);
    return found == texts_.end() ? empty : found->second;
}

std::string fillPlaces(const std::string& format, const std::vector<std::string>& arguments) {
    std::string filled;
    auto next = arguments.begin();
    for (std::size_t at = 0; at < format.size(); ++at) {
        const char place = format[at] == '%' && at + 1 < format.size() ? format[at + 1] : '\0';
        if (place == '%') {
            filled += '%';
            ++at;
        } else if (place == 's' || place == 'd' || place == 'u') {
            if (next != arguments.end()) {
                filled += *next++;
            }
            ++at;
        } else {
            filled += format[at];
        }
    }
    return filled;
}

const LanguageModule& currentLanguage() {
    return current();
}

void installLanguage(LanguageModule module) {
    current() = std::move(module);
}

const std::string& messageText(int id) {
    return current().text(id);
}

bool LoadNewResourceModule(const std::string& libraryFile, std::uint32_t localeId) {
    const std::filesystem::path library(libraryFile);
    const std::string name = library.filename().string();
    const auto dot = name.rfind('.');
    const std::string abbreviation = platform::localeAbbreviation(localeId);
    if (dot == std::string::npos || abbreviation.empty()) {
        return false;
    }
    for (const std::string& extension : {abbreviation, abbreviation.substr(0, 2)}) {
        const auto path = library.parent_path() / (name.substr(0, dot + 1) + extension);
        Result<LanguageModule> module = LanguageModule::load(path);
        if (module) {
            installLanguage(std::move(module).value());
            return true;
        }
        if (std::filesystem::exists(path)) {
            platform::noteProblem(module.error());
        }
    }
    return false;
}

} // namespace onudesk
