// SPDX-License-Identifier: MIT
#include "desk/inventory_file.h"

#include "base/file.h"

#include <array>
#include <cerrno>
#include <cstdio>
#include <cstring>
#include <span>
#include <system_error>
#include <utility>
#include <vector>

#include <QJsonArray>
#include <QJsonDocument>
#include <QJsonObject>
#include <QJsonParseError>
#include <QSaveFile>
#include <QStandardPaths>

#include <fcntl.h>
#include <sys/stat.h>

namespace onudesk::desk {

namespace {

namespace fs = std::filesystem;

constexpr int kFormat = 1;
constexpr int kMaxKeptFiles = 1000;
constexpr mode_t kDirectoryMode = 0700;
constexpr const char* kLocaleKey = "locale";

template <typename Entry>
struct TextKey {
    const char* key;
    std::string Entry::*member;
};
constexpr TextKey<OnuEntry> kOnuTexts[] = {{"name", &OnuEntry::name},
                                           {"agent", &OnuEntry::agent},
                                           {"onu", &OnuEntry::onu},
                                           {"menu", &OnuEntry::menuFile},
                                           {"profile", &OnuEntry::profile}};
constexpr TextKey<AccessProfile> kProfileTexts[] = {
    {"name", &AccessProfile::name},
    {"readCommunity", &AccessProfile::readCommunity},
    {"writeCommunity", &AccessProfile::writeCommunity}};
constexpr TextKey<host::V3Access> kV3Texts[] = {
    {"user", &host::V3Access::user},
    {"context", &host::V3Access::contextName},
    {"authPassphrase", &host::V3Access::authPassphrase},
    {"privPassphrase", &host::V3Access::privPassphrase}};

QString key(const char* name) {
    return QString::fromLatin1(name);
}

// Takes the keys of one object out of it, one by one; what is left at the end is unknown. The
// first problem is kept.
class KeyReader {
public:
    explicit KeyReader(QJsonObject object) : object_(std::move(object)) {}

    QJsonValue take(const char* name, QJsonValue::Type type, const char* wanted) {
        QJsonValue value = object_.take(key(name));
        if (value.isUndefined() || value.type() == type) {
            return value;
        }
        fail(std::string(name) + " must be " + wanted);
        return {QJsonValue::Undefined};
    }

    template <typename Entry>
    void takeTexts(std::span<const TextKey<Entry>> keys, Entry& entry) {
        for (const auto& [name, member] : keys) {
            entry.*member = take(name, QJsonValue::String, "a text").toString().toStdString();
        }
    }

    template <typename Value, std::size_t count>
    void takeNamed(const char* name, const Named<Value> (&names)[count], Value& value) {
        const std::string text = take(name, QJsonValue::String, "a text").toString().toStdString();
        const auto known = valueNamed(names, text);
        value = known.value_or(value);
        if (!known && !text.empty()) {
            fail(std::string(name) + " \"" + text + "\" is not known");
        }
    }

    void fail(const std::string& problem) {
        if (problem_.empty()) {
            problem_ = problem;
        }
    }

    [[nodiscard]] Result<void> finish() {
        if (!object_.isEmpty()) {
            fail("\"" + object_.keys().front().toStdString() + "\" is not known");
        }
        return problem_.empty() ? Result<void>() : Error{problem_};
    }

private:
    QJsonObject object_;
    std::string problem_;
};

Result<void> readOnu(KeyReader& reader, Inventory& inventory) {
    OnuEntry onu;
    reader.takeTexts<OnuEntry>(kOnuTexts, onu);
    const QJsonValue locale = reader.take(kLocaleKey, QJsonValue::Double, "a number");
    const double number = locale.toDouble(0);
    if (number < 0 || number > 0xFFFF || number != static_cast<std::uint32_t>(number)) {
        reader.fail("locale must be a whole number from 0 to 65535");
    } else {
        onu.localeId = static_cast<std::uint32_t>(number);
    }
    if (Result<void> read = reader.finish(); !read) {
        return read;
    }
    const Checked put = inventory.putOnu(onu);
    return put ? Result<void>() : Error{put.error()};
}

Result<void> readProfile(KeyReader& reader, Inventory& inventory) {
    AccessProfile profile;
    reader.takeTexts<AccessProfile>(kProfileTexts, profile);
    reader.takeTexts<host::V3Access>(kV3Texts, profile.v3);
    reader.takeNamed("version", kSnmpVersions, profile.version);
    reader.takeNamed("level", kSecurityLevels, profile.v3.level);
    reader.takeNamed("authProtocol", kAuthProtocols, profile.v3.authProtocol);
    reader.takeNamed("privProtocol", kPrivProtocols, profile.v3.privProtocol);
    if (Result<void> read = reader.finish(); !read) {
        return read;
    }
    const Checked put = inventory.putProfile(profile);
    return put ? Result<void>() : Error{put.error()};
}

// Fails with the first problem and its place.
Result<void> readList(KeyReader& document, const char* name, Inventory& inventory,
                      Result<void> (*readEntry)(KeyReader&, Inventory&)) {
    const QJsonArray list = document.take(name, QJsonValue::Array, "a list").toArray();
    for (qsizetype i = 0; i < list.size(); ++i) {
        KeyReader reader(list.at(i).toObject());
        const Result<void> read =
            list.at(i).isObject() ? readEntry(reader, inventory) : Error{"must be an object"};
        if (!read) {
            return Error{std::string(name) + "[" + std::to_string(i) + "]: " + read.error()};
        }
    }
    return {};
}

Result<void> readDocument(KeyReader document, Inventory& inventory) {
    const QJsonValue format = document.take("format", QJsonValue::Double, "a number");
    if (format.toDouble(0) != kFormat) {
        return Error{"is no inventory of format " + std::to_string(kFormat)};
    }
    // Profiles first: ONUs refer to them.
    Result<void> read = readList(document, "profiles", inventory, readProfile);
    if (read) {
        read = readList(document, "onus", inventory, readOnu);
    }
    return read ? document.finish() : read;
}

// Empty texts and values without a name are left out.
template <typename Entry>
void writeTexts(std::span<const TextKey<Entry>> keys, const Entry& entry, QJsonObject& object) {
    for (const auto& [name, member] : keys) {
        if (!(entry.*member).empty()) {
            object.insert(key(name), QString::fromStdString(entry.*member));
        }
    }
}

template <typename Value, std::size_t count>
void writeNamed(const char* name, const Named<Value> (&names)[count], Value value,
                QJsonObject& object) {
    for (const Named<Value>& known : names) {
        if (known.value == value) {
            object.insert(key(name), key(known.name));
        }
    }
}

QJsonObject onuObject(const OnuEntry& onu) {
    QJsonObject object;
    writeTexts<OnuEntry>(kOnuTexts, onu, object);
    if (onu.localeId != 0) {
        object.insert(key(kLocaleKey), static_cast<qint64>(onu.localeId));
    }
    return object;
}

QJsonObject profileObject(const AccessProfile& profile) {
    QJsonObject object;
    writeTexts<AccessProfile>(kProfileTexts, profile, object);
    writeTexts<host::V3Access>(kV3Texts, profile.v3, object);
    writeNamed("version", kSnmpVersions, profile.version, object);
    writeNamed("level", kSecurityLevels, profile.v3.level, object);
    writeNamed("authProtocol", kAuthProtocols, profile.v3.authProtocol, object);
    writeNamed("privProtocol", kPrivProtocols, profile.v3.privProtocol, object);
    return object;
}

Error systemError(const fs::path& path, int number) {
    return Error{path.string() + ": " + std::generic_category().message(number)};
}

// Directories that are there keep their mode.
Result<void> makeDirectories(const fs::path& directory) {
    std::error_code ignored;
    if (directory.empty() || fs::is_directory(directory, ignored)) {
        return {};
    }
    if (directory.has_relative_path()) {
        if (Result<void> made = makeDirectories(directory.parent_path()); !made) {
            return made;
        }
    }
    if (::mkdir(directory.c_str(), kDirectoryMode) != 0 && errno != EEXIST) {
        return systemError(directory, errno);
    }
    return {};
}

// Renames the file to the first free one of FILE.kept, FILE.kept.2, …
Result<fs::path> setAside(const fs::path& file) {
    for (int number = 1; number <= kMaxKeptFiles; ++number) {
        fs::path kept = file;
        kept += number == 1 ? std::string(".kept") : ".kept." + std::to_string(number);
        if (::renameat2(AT_FDCWD, file.c_str(), AT_FDCWD, kept.c_str(), RENAME_NOREPLACE) == 0) {
            return kept;
        }
        if (errno != EEXIST) {
            return systemError(kept, errno);
        }
    }
    return systemError(file, EEXIST);
}

// Not followed: a link, even one to nowhere, is something to keep, too.
bool somethingAt(const fs::path& path) {
    std::error_code ignored;
    return fs::exists(fs::symlink_status(path, ignored));
}

} // namespace

std::string formatInventory(const Inventory& inventory) {
    QJsonArray onus;
    for (const auto& [name, onu] : inventory.onus()) {
        onus.append(onuObject(onu));
    }
    QJsonArray profiles;
    for (const auto& [name, profile] : inventory.profiles()) {
        profiles.append(profileObject(profile));
    }
    const QJsonObject document = {
        {key("format"), kFormat}, {key("onus"), onus}, {key("profiles"), profiles}};
    return QJsonDocument(document).toJson().toStdString();
}

Result<Inventory> parseInventory(std::string_view bytes, const std::string& name) {
    QJsonParseError error{};
    const QJsonDocument document = QJsonDocument::fromJson(
        QByteArray(bytes.data(), static_cast<qsizetype>(bytes.size())), &error);
    if (error.error != QJsonParseError::NoError) {
        return Error{name + ": " + error.errorString().toStdString() + " at byte " +
                     std::to_string(error.offset)};
    }
    Inventory inventory;
    const Result<void> read = readDocument(KeyReader(document.object()), inventory);
    if (!read) {
        return Error{name + ": " + read.error()};
    }
    return inventory;
}

fs::path defaultInventoryFile() {
    const QString directory =
        QStandardPaths::writableLocation(QStandardPaths::GenericConfigLocation);
    return fs::path(directory.toStdString()) / "onudesk" / "inventory.json";
}

InventoryFile::InventoryFile(const fs::path& path) {
    // A link to the file stays a link to it.
    std::error_code error;
    path_ = fs::weakly_canonical(path, error);
    if (error) {
        path_ = fs::absolute(path);
    }
}

Result<Inventory> InventoryFile::load() {
    known_.reset();
    std::error_code error;
    const fs::file_status status = fs::status(path_, error);
    if (status.type() == fs::file_type::not_found) {
        return Inventory();
    }
    if (error) {
        return systemError(path_, error.value());
    }
    if (!fs::is_regular_file(status)) {
        return Error{path_.string() + ": is no regular file"};
    }
    Result<std::string> bytes = readFile(path_);
    if (!bytes) {
        return Error{bytes.error()};
    }
    Result<Inventory> inventory = parseInventory(*bytes, path_.string());
    if (inventory) {
        known_ = std::move(bytes).value();
    }
    return inventory;
}

bool InventoryFile::holdsKnownBytes() const {
    if (!known_) {
        return false;
    }
    std::error_code ignored;
    if (!fs::is_regular_file(path_, ignored)) {
        return false;
    }
    const Result<std::string> bytes = readFile(path_);
    return bytes && *bytes == *known_;
}

Result<InventoryFile::Saved> InventoryFile::save(const Inventory& inventory) {
    if (const Result<void> made = makeDirectories(path_.parent_path()); !made) {
        return Error{made.error()};
    }
    const std::string bytes = formatInventory(inventory);
    QSaveFile file(QString::fromStdString(path_.string()));
    const auto failure = [this, &file] {
        return Error{path_.string() + ": " + file.errorString().toStdString()};
    };
    if (!file.open(QIODevice::WriteOnly) ||
        !file.setPermissions(QFileDevice::ReadOwner | QFileDevice::WriteOwner) ||
        file.write(bytes.data(), static_cast<qint64>(bytes.size())) < 0 || !file.flush()) {
        return failure();
    }
    Saved saved;
    if (somethingAt(path_) && !holdsKnownBytes()) {
        Result<fs::path> kept = setAside(path_);
        if (!kept) {
            return Error{kept.error()};
        }
        saved.kept = *kept;
    }
    if (!file.commit()) {
        if (saved.kept) {
            ::renameat2(AT_FDCWD, saved.kept->c_str(), AT_FDCWD, path_.c_str(), RENAME_NOREPLACE);
        }
        return failure();
    }
    known_ = bytes;
    return saved;
}

} // namespace onudesk::desk
