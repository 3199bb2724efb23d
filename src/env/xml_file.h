// SPDX-License-Identifier: MIT
//
// Loading XML files nobody has to trust: catalogue, menus, language modules.
#pragma once

#include "base/result.h"

#include <cstddef>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <string_view>

#include <tinyxml.h>

namespace onudesk {

inline constexpr int kMaxXmlDepth = 64;

// UTF-8 of `bytes` written in `encoding`; fails on bytes the encoding does not have.
[[nodiscard]] Result<std::string> toUtf8(std::string_view bytes, const std::string& encoding);

// A parsed document in UTF-8. GB2312, GBK and GB18030 are converted as declared; everything else
// must be UTF-8. Refuses files over 8 MB, nesting over 64 elements, zero bytes and files without a
// root element. Errors name the file and, where known, the line.
using XmlDocument = std::unique_ptr<TiXmlDocument>;
[[nodiscard]] Result<XmlDocument> loadXml(const std::filesystem::path& path);
// The same for text already in memory; `name` stands for the file in errors.
[[nodiscard]] Result<XmlDocument> parseXml(std::string_view bytes, const std::string& name);

// The attribute's text, empty when it is missing.
[[nodiscard]] std::string attribute(const TiXmlElement& element, const char* name);

} // namespace onudesk
