// SPDX-License-Identifier: MIT
#include "bridge/code_para_access.h"

#include "onudesk/messages.h"

#include <algorithm>
#include <cstring>
#include <new>
#include <utility>

namespace onudesk {

namespace {

// Runs the step and turns a shortage of memory into false: nothing may leave the library thrown.
template <typename Step>
bool withMemory(Step step) noexcept {
    try {
        return step();
    } catch (const std::bad_alloc&) {
        return false;
    }
}

std::string_view dataOf(const char* data, std::size_t length) {
    return length == 0 ? std::string_view(data) : std::string_view(data, length);
}

template <typename Value>
bool insertEntry(CodeParaIndex& index, std::uint8_t id, CodeParaKind kind, Value value) {
    return withMemory([&] {
        index.try_emplace(id, CodeParaEntry{id, kind, std::move(value)});
        return true;
    });
}

template <typename List, typename Element>
bool appendElement(CodeParaIndex& index, std::uint8_t id, CodeParaKind kind, Element element) {
    return withMemory([&] {
        const auto entry = index.try_emplace(id, CodeParaEntry{id, kind, List{}}).first;
        auto* const list = std::get_if<List>(&entry->second.value);
        if (list == nullptr) {
            return false;
        }
        list->push_back(std::move(element));
        return true;
    });
}

} // namespace

ByteString::ByteString(std::string_view bytes) {
    const auto length = static_cast<std::uint16_t>(bytes.size());
    bytes_ = std::make_unique<char[]>(std::size_t{length} + 1);
    std::copy_n(bytes.data(), length, bytes_.get());
    lengthBigEndian_ = {static_cast<std::uint8_t>(length >> 8),
                        static_cast<std::uint8_t>(length & 0xFF)};
}

ByteString& ByteString::operator=(ByteString other) noexcept {
    bytes_.swap(other.bytes_);
    lengthBigEndian_.swap(other.lengthBigEndian_);
    return *this;
}

std::uint16_t ByteString::length() const {
    return static_cast<std::uint16_t>(lengthBigEndian_[0] << 8 | lengthBigEndian_[1]);
}

void destroyCodePara(DllClientCodePara* para) noexcept {
    if (para != nullptr) {
        const std::unique_ptr<CodeParaIndex> entries(para->entries);
        const std::unique_ptr<DllClientCodePara> record(para);
    }
}

CodeParaPtr createCodePara() noexcept {
    try {
        auto record = std::make_unique<DllClientCodePara>();
        record->entries = std::make_unique<CodeParaIndex>().release();
        return CodeParaPtr(record.release());
    } catch (const std::bad_alloc&) {
        return nullptr;
    }
}

CodeParaPtr copyCodePara(const DllClientCodePara& source) noexcept {
    CodeParaPtr copy = createCodePara();
    if (!copy || !withMemory([&] {
            *copy->entries = *source.entries;
            return true;
        })) {
        return nullptr;
    }
    copy->serviceCode = source.serviceCode;
    copy->reserved33 = source.reserved33;
    copy->reserved34 = source.reserved34;
    std::copy(std::begin(source.tag), std::end(source.tag), std::begin(copy->tag));
    copy->requestKind = source.requestKind;
    copy->itemTypeOffset = source.itemTypeOffset;
    std::copy(std::begin(source.payload), std::end(source.payload), std::begin(copy->payload));
    return copy;
}

bool setServiceCode(DllClientCodePara& para, std::uint8_t code) {
    para.serviceCode = code;
    return true;
}

bool setTag(DllClientCodePara& para, const char* tag) {
    std::copy_n(tag, sizeof para.tag, std::begin(para.tag));
    return true;
}

bool setRequestKind(DllClientCodePara& para, std::uint8_t kind) {
    para.requestKind = kind;
    return true;
}

bool setItemType(DllClientCodePara& para, std::int32_t itemType) {
    para.itemTypeOffset = static_cast<std::uint16_t>(itemType - kItemTypeBase);
    return true;
}

std::int32_t itemTypeOf(const DllClientCodePara& para) {
    return para.itemTypeOffset + kItemTypeBase;
}

bool setInteger(DllClientCodePara& para, std::uint8_t id, std::uint32_t value) {
    return insertEntry(*para.entries, id, CodeParaKind::integer, value);
}

bool setByteString(DllClientCodePara& para, std::uint8_t id, const char* data, std::size_t length) {
    return withMemory([&] {
        return insertEntry(*para.entries, id, CodeParaKind::byteString,
                           ByteString(dataOf(data, length)));
    });
}

bool setText(DllClientCodePara& para, std::uint8_t id, const std::string& text) {
    return setByteString(para, id, text.c_str(), 0);
}

bool appendInteger(DllClientCodePara& para, std::uint8_t id, std::uint32_t value) {
    return appendElement<IntegerList>(*para.entries, id, CodeParaKind::integerList, value);
}

bool appendByteString(DllClientCodePara& para, std::uint8_t id, const char* data,
                      std::size_t length) {
    return withMemory([&] {
        return appendElement<ByteStringList>(*para.entries, id, CodeParaKind::byteStringList,
                                             ByteString(dataOf(data, length)));
    });
}

void putInteger(CodeParaIndex& index, std::uint8_t id, std::uint32_t value) {
    index.try_emplace(id, CodeParaEntry{id, CodeParaKind::integer, value});
}

void putBytes(CodeParaIndex& index, std::uint8_t id, std::string_view bytes) {
    index.try_emplace(id, CodeParaEntry{id, CodeParaKind::byteString, ByteString(bytes)});
}

void putIntegerList(CodeParaIndex& index, std::uint8_t id, const std::vector<std::uint32_t>& list) {
    index.try_emplace(
        id, CodeParaEntry{id, CodeParaKind::integerList, IntegerList(list.begin(), list.end())});
}

void putByteStringList(CodeParaIndex& index, std::uint8_t id,
                       const std::vector<std::string>& list) {
    ByteStringList values;
    for (const std::string& element : list) {
        values.emplace_back(element);
    }
    index.try_emplace(id, CodeParaEntry{id, CodeParaKind::byteStringList, std::move(values)});
}

std::string_view textUpToZero(std::string_view bytes) {
    return bytes.substr(0, bytes.find('\0'));
}

const CodeParaEntry* CodeParaReader::find(std::uint8_t id) const {
    if (index_ == nullptr) {
        return nullptr;
    }
    const auto found = index_->find(id);
    return found == index_->end() ? nullptr : &found->second;
}

std::optional<std::uint32_t> CodeParaReader::integer(std::uint8_t id) const {
    const CodeParaEntry* entry = find(id);
    const auto* value = entry == nullptr ? nullptr : std::get_if<std::uint32_t>(&entry->value);
    return value == nullptr ? std::nullopt : std::optional(*value);
}

std::optional<std::string_view> CodeParaReader::bytes(std::uint8_t id) const {
    const CodeParaEntry* entry = find(id);
    const auto* value = entry == nullptr ? nullptr : std::get_if<ByteString>(&entry->value);
    return value == nullptr ? std::nullopt : std::optional(value->view());
}

std::optional<std::string> CodeParaReader::text(std::uint8_t id) const {
    const auto all = bytes(id);
    return all ? std::optional<std::string>(textUpToZero(*all)) : std::nullopt;
}

std::optional<std::string> CodeParaReader::bytes(std::uint8_t id, std::size_t count) const {
    const auto all = bytes(id);
    return all ? std::optional<std::string>(all->substr(0, count)) : std::nullopt;
}

std::optional<std::vector<std::uint32_t>> CodeParaReader::integers(std::uint8_t id) const {
    const CodeParaEntry* entry = find(id);
    const auto* list = entry == nullptr ? nullptr : std::get_if<IntegerList>(&entry->value);
    if (list == nullptr) {
        return std::nullopt;
    }
    return std::vector<std::uint32_t>(list->begin(), list->end());
}

std::optional<std::vector<std::string>> CodeParaReader::byteStrings(std::uint8_t id) const {
    const CodeParaEntry* entry = find(id);
    const auto* list = entry == nullptr ? nullptr : std::get_if<ByteStringList>(&entry->value);
    if (list == nullptr) {
        return std::nullopt;
    }
    std::vector<std::string> texts;
    texts.reserve(list->size());
    for (const ByteString& element : *list) {
        texts.emplace_back(element.view());
    }
    return texts;
}

} // namespace onudesk
