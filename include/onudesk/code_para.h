// SPDX-License-Identifier: MIT
//
// The request and reply records that travel between the configuration window and its host, and
// the typed entries they carry.
//
// Both sides are built with one toolchain and share one heap: a record travels by pointer.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <list>
#include <map>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

namespace onudesk {

// Entry ids. Req: written by the plug-in into requests. Rep: read by the plug-in from replies.
enum CodeParaId : std::uint8_t {
    CP_V3_USER = 0,             // Req, text
    CP_RESULT_TEXT = 5,         // Rep, text: name of the group that was read
    CP_CHUNK_LENGTH = 34,       // Rep, integer
    CP_AGENT_ADDR = 47,         // Req and Rep, integer: IPv4 address in host byte order
    CP_READ_COMMUNITY = 49,     // Req, text
    CP_WRITE_COMMUNITY = 50,    // Req, text
    CP_SNMP_PORT = 51,          // Req, integer
    CP_V3_CONTEXT = 52,         // Req, text
    CP_SNMP_VERSION = 53,       // Req, integer: 0, 1 or 3
    CP_INDEX_SUFFIX = 64,       // Req, text such as ".1.2.5"
    CP_SUB_INDEX = 70,          // Req, integer, only when present
    CP_CHUNK_NUMBER = 95,       // Rep, integer
    CP_STATUS = 99,             // Rep, integer: 0 failed, 1 completed, 2 more replies follow
    CP_RETRIES = 100,           // Req, integer
    CP_TIMEOUT = 101,           // Req, integer, seconds
    CP_OID_LIST = 102,          // Req and Rep, texts
    CP_VALUE_LIST = 103,        // Req and Rep, byte strings
    CP_TYPE_LIST = 104,         // Req, integers: ASN.1 tags
    CP_ERROR_STATUS = 106,      // Rep, integer, see error_status
    CP_ERROR_INDEX = 107,       // Rep, integer, from 1
    CP_ERROR_TEXT = 108,        // Rep, text, only in replies that report an error
    CP_VALUE_LENGTH_LIST = 117, // Rep, integers: bytes of each value as the agent returned it
    CP_NAME_LIST = 123,         // Req, texts: catalogue names of the bindings
    CP_FLAG_130 = 130,          // Req, integer 0: first of two writes, its reply goes nowhere
    CP_CHUNK_DATA = 211,        // Rep, byte string
    CP_V3_SEC_LEVEL = 226,      // Req, integer: 1 to 3
    CP_V3_SEC_MODEL = 227,      // Req, integer: 0 to 3
    CP_V3_ENGINE_ID = 228,      // Req, text
    CP_V3_AUTH_PROTO = 229,     // Req, integer: 1 none, 2 MD5, 3 SHA
    CP_V3_AUTH_KEY = 230,       // Req, text
    CP_V3_PRIV_PROTO = 231,     // Req, integer: 1 none, 2 DES
    CP_V3_PRIV_KEY = 232,       // Req, text
};

// Bytes with a 16-bit length kept in network byte order; a zero byte always follows the bytes.
// Lengths are taken modulo 65536.
class ByteString {
public:
    ByteString() : ByteString(std::string_view{}) {}
    explicit ByteString(std::string_view bytes);
    ByteString(const ByteString& other) : ByteString(other.view()) {}
    ByteString(ByteString&& other) noexcept
        : bytes_(std::move(other.bytes_)),
          lengthBigEndian_(std::exchange(other.lengthBigEndian_, {})) {}
    ByteString& operator=(ByteString other) noexcept;
    ~ByteString() = default;

    [[nodiscard]] std::uint16_t length() const;
    [[nodiscard]] std::string_view view() const { return {bytes_.get(), length()}; }
    // The length as stored: high byte first.
    [[nodiscard]] std::array<std::uint8_t, 2> storedLength() const { return lengthBigEndian_; }

private:
    std::unique_ptr<char[]> bytes_;
    std::array<std::uint8_t, 2> lengthBigEndian_{};
};

using IntegerList = std::list<std::uint32_t>;
using ByteStringList = std::list<ByteString>;

// Kinds 4 to 8 are older names of kinds 0 to 3: they copy, read and destroy alike.
enum class CodeParaKind : std::uint32_t {
    integer = 0,
    byteString = 1,
    integerList = 2,
    byteStringList = 3,
    byteStringAlias = 4,
    integerAlias = 5,
    integerAlias2 = 6,
    integerListAlias = 7,
    byteStringListAlias = 8,
};

struct CodeParaEntry {
    std::uint8_t id = 0;
    CodeParaKind kind = CodeParaKind::integer;
    std::variant<std::uint32_t, ByteString, IntegerList, ByteStringList> value;
};

using CodeParaIndex = std::map<std::uint8_t, CodeParaEntry>;

// The request record. The entry index is owned by the record: create, copy and destroy records
// only with the functions of bridge/code_para_access.h or the plug-in's exports.
#pragma pack(push, 1)
struct DllClientCodePara {
    CodeParaIndex* entries;
    std::uint8_t indexRest[24]; // zero
    std::uint8_t serviceCode;
    std::uint8_t reserved33;
    std::uint16_t reserved34;
    char tag[4]; // "0000", no terminator
    std::uint8_t requestKind;
    std::uint16_t itemTypeOffset; // item type less kItemTypeBase
    std::uint8_t payload[4083];
    std::uint8_t padding[2];
};
#pragma pack(pop)

// The reply record. The host makes it and takes it back through ReleaseCodeParaFn; the plug-in
// reads nothing but the entry index.
struct CodeParaReply {
    std::uint8_t hostData[4112];
    CodeParaIndex* entries;
};

static_assert(sizeof(void*) == 8, "the records are laid out for 64-bit pointers");
static_assert(sizeof(DllClientCodePara) == 4128);
static_assert(offsetof(DllClientCodePara, entries) == 0);
static_assert(offsetof(DllClientCodePara, serviceCode) == 32);
static_assert(offsetof(DllClientCodePara, reserved33) == 33);
static_assert(offsetof(DllClientCodePara, reserved34) == 34);
static_assert(offsetof(DllClientCodePara, tag) == 36);
static_assert(offsetof(DllClientCodePara, requestKind) == 40);
static_assert(offsetof(DllClientCodePara, itemTypeOffset) == 41);
static_assert(offsetof(DllClientCodePara, payload) == 43);
static_assert(offsetof(DllClientCodePara, padding) == 4126);
static_assert(offsetof(CodeParaReply, entries) == 4112);

// Takes the address of the variable that holds the reply and sets that variable to null.
using ReleaseCodeParaFn = void (*)(CodeParaReply** holder);

} // namespace onudesk
