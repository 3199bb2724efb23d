// SPDX-License-Identifier: MIT
//
// Making, filling, copying, reading and destroying code-para records.
//
//     CodeParaPtr para = createCodePara();
//     if (para && setInteger(*para, CP_SNMP_PORT, 161)) { … }
//     std::optional<std::uint32_t> port = CodeParaReader(*para).integer(CP_SNMP_PORT);
#pragma once

#include "onudesk/code_para.h"

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace onudesk {

// Frees every entry, the index and the record; null is fine.
void destroyCodePara(DllClientCodePara* para) noexcept;

struct CodeParaDeleter {
    void operator()(DllClientCodePara* para) const noexcept { destroyCodePara(para); }
};
using CodeParaPtr = std::unique_ptr<DllClientCodePara, CodeParaDeleter>;

// An empty record, all bytes from 32 on zero; null when memory is short.
[[nodiscard]] CodeParaPtr createCodePara() noexcept;
// A record with copies of all entries, header and payload; null when memory is short.
[[nodiscard]] CodeParaPtr copyCodePara(const DllClientCodePara& source) noexcept;

bool setServiceCode(DllClientCodePara& para, std::uint8_t code);
// Takes four bytes.
bool setTag(DllClientCodePara& para, const char* tag);
bool setRequestKind(DllClientCodePara& para, std::uint8_t kind);
// Stores the item type less kItemTypeBase, modulo 65536.
bool setItemType(DllClientCodePara& para, std::int32_t itemType);
// kItemTypeBase plus the stored field.
[[nodiscard]] std::int32_t itemTypeOf(const DllClientCodePara& para);

// Each keeps an entry that already has the id and discards the new one. False only when memory is
// short.
bool setInteger(DllClientCodePara& para, std::uint8_t id, std::uint32_t value);
// With length 0, `data` is a zero-terminated text, stored without its terminator; otherwise exactly
// `length` bytes (modulo 65536) are stored, zero bytes included.
bool setByteString(DllClientCodePara& para, std::uint8_t id, const char* data, std::size_t length);
// Stores the text up to its first zero byte, also when it is empty.
bool setText(DllClientCodePara& para, std::uint8_t id, const std::string& text);
// Each makes a list or extends it; false when the id already holds something else.
bool appendInteger(DllClientCodePara& para, std::uint8_t id, std::uint32_t value);
bool appendByteString(DllClientCodePara& para, std::uint8_t id, const char* data,
                      std::size_t length);

// Entries into a reply's index: the host's side of the same operations. Lists keep whole byte
// strings.
void putInteger(CodeParaIndex& index, std::uint8_t id, std::uint32_t value);
void putBytes(CodeParaIndex& index, std::uint8_t id, std::string_view bytes);
void putIntegerList(CodeParaIndex& index, std::uint8_t id, const std::vector<std::uint32_t>& list);
void putByteStringList(CodeParaIndex& index, std::uint8_t id, const std::vector<std::string>& list);

// The bytes before the first zero byte, which is where a text ends.
[[nodiscard]] std::string_view textUpToZero(std::string_view bytes);

// Reads entries of a request or reply. A missing id, or one of another kind, gives nothing.
class CodeParaReader {
public:
    explicit CodeParaReader(const CodeParaIndex* index) : index_(index) {}
    explicit CodeParaReader(const DllClientCodePara& para) : index_(para.entries) {}
    explicit CodeParaReader(const CodeParaReply& reply) : index_(reply.entries) {}

    [[nodiscard]] const CodeParaEntry* find(std::uint8_t id) const;
    [[nodiscard]] bool has(std::uint8_t id) const { return find(id) != nullptr; }
    [[nodiscard]] std::optional<std::uint32_t> integer(std::uint8_t id) const;
    // Up to the first zero byte.
    [[nodiscard]] std::optional<std::string> text(std::uint8_t id) const;
    // All bytes, zero bytes included; valid while the record lives.
    [[nodiscard]] std::optional<std::string_view> bytes(std::uint8_t id) const;
    // The first `count` bytes, fewer when there are not that many.
    [[nodiscard]] std::optional<std::string> bytes(std::uint8_t id, std::size_t count) const;
    [[nodiscard]] std::optional<std::vector<std::uint32_t>> integers(std::uint8_t id) const;
    // Whole byte strings, zero bytes included.
    [[nodiscard]] std::optional<std::vector<std::string>> byteStrings(std::uint8_t id) const;

private:
    const CodeParaIndex* index_;
};

} // namespace onudesk
