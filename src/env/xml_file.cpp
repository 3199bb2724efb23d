// SPDX-License-Identifier: MIT
#include "env/xml_file.h"

#include "base/file.h"
#include "platform/files.h"

#include <algorithm>
#include <array>
#include <utility>

#include <iconv.h>

namespace onudesk {

namespace {

bool startsName(char c) {
    return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || c == '_' ||
           static_cast<unsigned char>(c) >= 0x80;
}

// Walks the markup before TinyXML does, which nests without limit and takes much that is no XML.
// Whatever the two could read differently is refused.
class MarkupCheck {
public:
    explicit MarkupCheck(std::string_view text) : text_(text) {}

    // What is wrong with the text.
    [[nodiscard]] Result<void> run() {
        while (problem_.empty() && (at_ = text_.find('<', at_)) != std::string_view::npos) {
            markup();
        }
        return problem_.empty() ? Result<void>()
                                : Error{problem_ + " in line " + std::to_string(line())};
    }

private:
    [[nodiscard]] std::string_view rest() const { return text_.substr(at_); }

    void markup() {
        if (rest().starts_with("<?xml") && at_ == 0) {
            declaration();
        } else if (rest().starts_with("<!--")) {
            skipTo("-->", 4);
        } else if (rest().starts_with("<![CDATA[") && depth_ > 0) {
            skipTo("]]>", 9);
        } else if (rest().starts_with("</") && depth_ > 0) {
            --depth_;
            skipTo(">", 2);
        } else if (rest().size() > 1 && startsName(rest()[1])) {
            tag();
        } else {
            problem_ = "markup that is not allowed";
        }
    }

    void skipTo(std::string_view close, std::size_t from) {
        const auto end = text_.find(close, at_ + from);
        at_ = end == std::string_view::npos ? text_.size() : end + close.size();
    }

    void declaration() {
        const auto end = text_.find('>');
        if (end == std::string_view::npos || text_[end - 1] != '?' ||
            text_.substr(1, end - 1).find('<') != std::string_view::npos) {
            problem_ = "a declaration that does not end";
            return;
        }
        at_ = end + 1;
    }

    void tag() {
        char quote = '\0';
        for (++at_; at_ < text_.size(); ++at_) {
            const char c = text_[at_];
            if (quote != '\0') {
                quote = c == quote ? '\0' : quote;
            } else if (c == '"' || c == '\'') {
                quote = c;
            } else if (c == '>' || c == '<') {
                break;
            }
        }
        if (at_ >= text_.size() || text_[at_] == '<') {
            problem_ = "a tag that does not end";
        } else if (text_[at_ - 1] != '/' && ++depth_ > kMaxXmlDepth) {
            problem_ = "elements nested more than " + std::to_string(kMaxXmlDepth) + " deep";
        }
    }

    [[nodiscard]] std::ptrdiff_t line() const {
        return 1 + std::ranges::count(text_.substr(0, at_), '\n');
    }

    std::string_view text_;
    std::size_t at_ = 0;
    int depth_ = 0;
    std::string problem_;
};

std::string declaredEncoding(std::string_view text) {
    if (!text.starts_with("<?xml")) {
        return {};
    }
    const std::string_view declaration = text.substr(0, text.find("?>"));
    const auto key = declaration.find("encoding");
    const auto open =
        declaration.find_first_of("\"'", key == std::string_view::npos ? key : key + 8);
    if (key == std::string_view::npos || open == std::string_view::npos) {
        return {};
    }
    const auto close = declaration.find(declaration[open], open + 1);
    return std::string(declaration.substr(open + 1, close - open - 1));
}

bool isChineseEncoding(const std::string& name) {
    return std::ranges::any_of(std::array{"GB2312", "GBK", "GB18030"}, [&](const char* known) {
        return platform::sameIgnoringCase(name, known);
    });
}

bool isAscii(std::string_view text) {
    return std::ranges::all_of(text, [](char c) { return static_cast<unsigned char>(c) < 0x80; });
}

// Without tabs the parser does not follow rows, which saves a good part of its time.
XmlDocument parseText(const std::string& text, int tabSize) {
    // Message texts keep their blanks: several are put together from two.
    TiXmlBase::SetCondenseWhiteSpace(false);
    auto document = std::make_unique<TiXmlDocument>();
    document->SetTabSize(tabSize);
    document->Parse(text.c_str(), nullptr, TIXML_ENCODING_UTF8);
    return document;
}

} // namespace

Result<std::string> toUtf8(std::string_view bytes, const std::string& encoding) {
    const iconv_t converter = ::iconv_open("UTF-8", encoding.c_str());
    // NOLINTNEXTLINE: iconv's own failure value
    if (converter == reinterpret_cast<iconv_t>(-1)) {
        return Error{"unknown encoding " + encoding};
    }
    // No supported encoding grows by more than two bytes for each one.
    std::string converted(bytes.size() * 3, '\0');
    std::string input(bytes);
    char* from = input.data();
    std::size_t left = input.size();
    char* to = converted.data();
    std::size_t room = converted.size();
    const std::size_t outcome = ::iconv(converter, &from, &left, &to, &room);
    ::iconv_close(converter);
    if (outcome == static_cast<std::size_t>(-1)) {
        const auto line = 1 + std::count(input.data(), from, '\n');
        return Error{"line " + std::to_string(line) + " is not valid " + encoding};
    }
    converted.resize(converted.size() - room);
    return converted;
}

Result<XmlDocument> parseXml(std::string_view bytes, const std::string& name) {
    if (bytes.size() > kMaxTextFileBytes) {
        return Error{name + ": larger than " + std::to_string(kMaxTextFileBytes) + " bytes"};
    }
    if (bytes.starts_with("\xEF\xBB\xBF")) {
        bytes.remove_prefix(3);
    }
    if (const auto zero = bytes.find('\0'); zero != std::string_view::npos) {
        return Error{name + ": contains a zero byte"};
    }
    const std::string declared = declaredEncoding(bytes);
    // GB18030 reads every GB2312 and GBK text; ASCII is the same in all.
    Result<std::string> text =
        isAscii(bytes) ? std::string(bytes)
                       : toUtf8(bytes, isChineseEncoding(declared) ? "GB18030" : "UTF-8");
    if (!text) {
        return Error{name + ": " + text.error()};
    }
    if (const Result<void> markup = MarkupCheck(*text).run(); !markup) {
        return Error{name + ": " + markup.error()};
    }
    XmlDocument document = parseText(*text, 0);
    if (document->Error()) {
        document = parseText(*text, 1); // for the row
        return Error{name + ":" + std::to_string(document->ErrorRow()) + ": " +
                     document->ErrorDesc()};
    }
    if (document->RootElement() == nullptr) {
        return Error{name + ": has no root element"};
    }
    return document;
}

Result<XmlDocument> loadXml(const std::filesystem::path& path) {
    const Result<std::string> bytes = readFile(path);
    if (!bytes) {
        return Error{bytes.error()};
    }
    return parseXml(*bytes, path.string());
}

std::string attribute(const TiXmlElement& element, const char* name) {
    const char* value = element.Attribute(name);
    return value == nullptr ? std::string() : std::string(value);
}

} // namespace onudesk
