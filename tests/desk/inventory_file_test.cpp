// SPDX-License-Identifier: MIT
#include "desk/inventory_file.h"

#include "base/file.h"
#include "sample_entries.h"
#include "support/client_tree.h"

#include <csignal>
#include <filesystem>
#include <string>

#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/stat.h>

namespace onudesk::desk {

namespace {

namespace fs = std::filesystem;
using test::sampleInventory;
using test::TemporaryDirectory;

mode_t modeOf(const fs::path& path) {
    struct stat status {};
    EXPECT_EQ(::stat(path.c_str(), &status), 0) << path;
    return status.st_mode & 0777U;
}

std::size_t filesIn(const fs::path& directory) {
    return static_cast<std::size_t>(
        std::distance(fs::directory_iterator(directory), fs::directory_iterator()));
}

// While it lives, no file can grow beyond 16 bytes, as on a full disk.
class FullDisk {
public:
    FullDisk() {
        ::getrlimit(RLIMIT_FSIZE, &before_);
        rlimit limit = before_;
        limit.rlim_cur = 16;
        ::setrlimit(RLIMIT_FSIZE, &limit);
        handler_ = std::signal(SIGXFSZ, SIG_IGN);
    }
    ~FullDisk() {
        ::setrlimit(RLIMIT_FSIZE, &before_);
        std::signal(SIGXFSZ, handler_);
    }
    FullDisk(const FullDisk&) = delete;
    FullDisk& operator=(const FullDisk&) = delete;

private:
    rlimit before_{};
    void (*handler_)(int) = nullptr;
};

TEST(InventoryFile, RoundTripKeepsEveryField) {
    Inventory inventory = sampleInventory();
    OnuEntry onu = test::sampleOnu("三号楼 \"A\"");
    onu.localeId = 2052;
    ASSERT_TRUE(inventory.putOnu(onu));
    // What its version does not use is kept, too.
    AccessProfile mixed = test::v3Profile("mixed");
    mixed.readCommunity = "look";
    mixed.writeCommunity = "touch";
    ASSERT_TRUE(inventory.putProfile(mixed));

    const Result<Inventory> read = parseInventory(formatInventory(inventory), "file");

    ASSERT_TRUE(read) << read.error();
    EXPECT_EQ(*read, inventory);
}

TEST(InventoryFile, SavesForTheOwnerAloneAndLoadsAgain) {
    const TemporaryDirectory directory;
    const mode_t mask = ::umask(0);
    InventoryFile file(directory.path() / "a" / "b" / "inventory.json");
    const auto saved = file.save(sampleInventory());
    ::umask(mask);

    ASSERT_TRUE(saved) << saved.error();
    EXPECT_FALSE(saved->kept);
    EXPECT_EQ(modeOf(file.path()), 0600U);
    EXPECT_EQ(modeOf(directory.path() / "a"), 0700U);
    EXPECT_EQ(modeOf(directory.path() / "a" / "b"), 0700U);
    // An old file loses the access of others.
    ::chmod(file.path().c_str(), 0644);
    InventoryFile old(file.path());
    const Result<Inventory> loaded = old.load();
    ASSERT_TRUE(loaded) << loaded.error();
    EXPECT_EQ(*loaded, sampleInventory());
    ASSERT_TRUE(old.save(sampleInventory()));
    EXPECT_EQ(modeOf(file.path()), 0600U);
}

TEST(InventoryFile, FailedSaveLeavesTheOldFileAndNothingElse) {
    const TemporaryDirectory directory;
    const std::string before = formatInventory(Inventory());
    InventoryFile file(directory.write("inventory.json", before));
    ASSERT_TRUE(file.load());

    const auto saved = [&file] {
        const FullDisk full;
        return file.save(sampleInventory());
    }();

    ASSERT_FALSE(saved);
    EXPECT_EQ(saved.error().find(file.path().string() + ": "), 0U) << saved.error();
    EXPECT_EQ(*readFile(file.path()), before);
    EXPECT_EQ(filesIn(directory.path()), 1U);
    EXPECT_TRUE(file.save(sampleInventory()));
}

TEST(InventoryFile, FailedSaveLeavesABadFileInItsPlace) {
    const TemporaryDirectory directory;
    InventoryFile file(directory.write("inventory.json", "{"));
    ASSERT_FALSE(file.load());
    {
        const FullDisk full;
        ASSERT_FALSE(file.save(sampleInventory()));
    }
    EXPECT_EQ(*readFile(file.path()), "{");
    EXPECT_EQ(filesIn(directory.path()), 1U);
}

TEST(InventoryFile, NamesADirectoryThatCannotBeMade) {
    const TemporaryDirectory directory;
    const fs::path blocker = directory.write("blocker", "");
    const auto saved = InventoryFile(blocker / "inventory.json").save(sampleInventory());
    ASSERT_FALSE(saved);
    EXPECT_NE(saved.error().find(blocker.string()), std::string::npos) << saved.error();
    EXPECT_TRUE(fs::is_regular_file(blocker));
}

TEST(InventoryFile, KeepsEveryBadFileBesideTheNewOne) {
    const TemporaryDirectory directory;
    const fs::path path = directory.write("inventory.json", "first");
    directory.write("inventory.json.kept", "older");
    InventoryFile file(path);
    ASSERT_FALSE(file.load());

    const auto saved = file.save(sampleInventory());

    ASSERT_TRUE(saved) << saved.error();
    ASSERT_TRUE(saved->kept);
    EXPECT_EQ(saved->kept->filename(), "inventory.json.kept.2");
    EXPECT_EQ(*readFile(*saved->kept), "first");
    EXPECT_EQ(*readFile(directory.path() / "inventory.json.kept"), "older");
    // The next save replaces what this one wrote.
    const auto again = file.save(Inventory());
    ASSERT_TRUE(again) << again.error();
    EXPECT_FALSE(again->kept);
}

TEST(InventoryFile, KeepsWhatAnotherProgramWroteMeanwhile) {
    const TemporaryDirectory directory;
    InventoryFile file(directory.path() / "inventory.json");
    ASSERT_EQ(*file.load(), Inventory()); // no file is an empty inventory
    ASSERT_TRUE(file.save(Inventory()));
    directory.write("inventory.json", formatInventory(sampleInventory()));

    const auto saved = file.save(Inventory());

    ASSERT_TRUE(saved && saved->kept);
    const Result<Inventory> other = InventoryFile(*saved->kept).load();
    ASSERT_TRUE(other) << other.error();
    EXPECT_EQ(*other, sampleInventory());
}

TEST(InventoryFile, WritesThroughALink) {
    const TemporaryDirectory directory;
    const fs::path real = directory.write("real.json", formatInventory(Inventory()));
    const fs::path link = directory.path() / "link.json";
    fs::create_symlink(real, link);
    InventoryFile file(link);
    ASSERT_TRUE(file.load());
    ASSERT_TRUE(file.save(sampleInventory()));
    EXPECT_TRUE(fs::is_symlink(link));
    EXPECT_EQ(*readFile(real), formatInventory(sampleInventory()));
}

struct BadFile {
    const char* name;
    std::string bytes;
    const char* reason;
};

std::string onus(const std::string& list) {
    return R"({"format":1,"profiles":[{"name":"p","version":"v2c","readCommunity":"r"}],"onus":)" +
           list + "}";
}

std::string profiles(const std::string& list) {
    return R"({"format":1,"profiles":)" + list + "}";
}

constexpr const char* kOnu =
    R"({"name":"a","agent":"10.0.0.1","onu":"1.1.1","menu":"m.xml","profile":"p"})";

const BadFile kBadFiles[] = {
    {"Empty", "", "at byte 0"},
    {"NoJson", "<xml/>", "at byte"},
    {"CutShort", formatInventory(sampleInventory()).substr(0, 200), "at byte"},
    {"ZeroBytes", std::string(64, '\0'), "at byte"},
    {"NoUtf8", "{\"format\":1,\"onus\":\"\xff\xfe\"}", "at byte"},
    {"TooDeep", std::string(100000, '['), "at byte"},
    {"List", "[]", "format 1"},
    {"NoFormat", "{}", "format 1"},
    {"LaterFormat", R"({"format":2})", "format 1"},
    {"FormatAsText", R"({"format":"1"})", "format 1"},
    {"UnknownKey", R"({"format":1,"extra":{}})", "\"extra\" is not known"},
    {"OnusNoList", R"({"format":1,"onus":{}})", "onus must be a list"},
    {"OnuNoObject", onus("[7]"), "onus[0]: must be an object"},
    {"OnuUnknownKey", onus(R"([{"nmae":"a"}])"), "onus[0]: \"nmae\" is not known"},
    {"OnuNumberAsName", onus(R"([{"name":5}])"), "onus[0]: name must be a text"},
    {"OnuWithoutAgent", onus(R"([{"name":"a"}])"), "onus[0]: Agent is missing"},
    {"OnuTwice", onus("[" + std::string(kOnu) + "," + kOnu + "]"), "onus[1]: There is already"},
    {"OnuZeroByte", onus(R"([{"name":"a\u0000b"}])"), "onus[0]: Name contains a control"},
    {"OnuHalfLocale", onus(R"([{"locale":10.5}])"), "onus[0]: locale must be a whole number"},
    {"OnuHugeLocale", onus(R"([{"locale":1e300}])"), "onus[0]: locale must be a whole number"},
    {"ProfileUnknownVersion", profiles(R"([{"name":"p","version":"v4"}])"),
     "profiles[0]: version \"v4\" is not known"},
    {"ProfileShortPhrase",
     profiles(R"([{"name":"p","version":"v3","user":"u","level":"authNoPriv",)"
              R"("authProtocol":"MD5","authPassphrase":"1234567"}])"),
     "profiles[0]: Authentication pass phrase needs at least 8"},
    {"Oversized", formatInventory(Inventory()) + std::string(kMaxTextFileBytes, ' '), "larger"},
};

TEST(BadFileLoad, NamesFileAndReasonAndLeavesTheFile) {
    for (const BadFile& bad : kBadFiles) {
        SCOPED_TRACE(bad.name);
        const TemporaryDirectory directory;
        InventoryFile file(directory.write("inventory.json", bad.bytes));
        const Result<Inventory> loaded = file.load();
        ASSERT_FALSE(loaded);
        EXPECT_TRUE(loaded.error().starts_with(file.path().string() + ": ")) << loaded.error();
        EXPECT_NE(loaded.error().find(bad.reason), std::string::npos) << loaded.error();
        EXPECT_EQ(fs::file_size(file.path()), bad.bytes.size());
    }
}

TEST(InventoryFile, RefusesWhatIsNoFile) {
    const TemporaryDirectory directory;
    ASSERT_EQ(::mkfifo((directory.path() / "pipe").c_str(), 0600), 0);
    for (const fs::path& path : {directory.path(), directory.path() / "pipe"}) {
        const Result<Inventory> loaded = InventoryFile(path).load();
        ASSERT_FALSE(loaded) << path;
        EXPECT_EQ(loaded.error(), path.string() + ": is no regular file");
    }
}

} // namespace

} // namespace onudesk::desk
