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

class InventoryFileTest : public testing::Test {
protected:
    // What is in the file, and how many files are beside it.
    [[nodiscard]] std::string state() const {
        const auto files = std::distance(fs::directory_iterator(directory.path()), {});
        return *readFile(path) + ' ' + std::to_string(files - 1);
    }
    [[nodiscard]] Inventory loaded() const {
        const Result<Inventory> read = InventoryFile(path).load();
        EXPECT_TRUE(read) << read.error();
        return read ? *read : Inventory();
    }

    const TemporaryDirectory directory;
    const fs::path path = directory.path() / "inventory.json";
    InventoryFile file{path};
};

TEST_F(InventoryFileTest, KeepsEveryFieldForTheOwnerAlone) {
    Inventory inventory = sampleInventory();
    OnuEntry onu = test::sampleOnu("三号楼 \"A\"");
    onu.localeId = 2052;
    ASSERT_TRUE(inventory.putOnu(onu));
    // What its version does not use is kept, too.
    AccessProfile mixed = test::v3Profile("mixed");
    mixed.readCommunity = "look";
    mixed.writeCommunity = "touch";
    ASSERT_TRUE(inventory.putProfile(mixed));
    const mode_t mask = ::umask(0);
    InventoryFile deep(directory.path() / "a" / "b" / "inventory.json");
    const auto saved = deep.save(inventory);
    ::umask(mask);
    ASSERT_TRUE(saved) << saved.error();
    EXPECT_FALSE(saved->kept);
    EXPECT_EQ(modeOf(deep.path()), 0600U);
    EXPECT_EQ(modeOf(directory.path() / "a"), 0700U);
    EXPECT_EQ(modeOf(directory.path() / "a" / "b"), 0700U);
    // An old file loses the access of others.
    ::chmod(deep.path().c_str(), 0644);
    InventoryFile old(deep.path());
    const Result<Inventory> read = old.load();
    ASSERT_TRUE(read) << read.error();
    EXPECT_EQ(*read, inventory);
    ASSERT_TRUE(old.save(sampleInventory()));
    EXPECT_EQ(modeOf(deep.path()), 0600U);
}

TEST_F(InventoryFileTest, AFailedSaveLeavesTheOldFileAndNothingElse) {
    for (const std::string& before : {formatInventory(Inventory()), std::string("{")}) {
        directory.write("inventory.json", before);
        EXPECT_EQ(file.load().ok(), before != "{");
        const auto saved = [this] {
            const FullDisk full;
            return file.save(sampleInventory());
        }();
        ASSERT_FALSE(saved);
        EXPECT_EQ(saved.error().find(path.string() + ": "), 0U) << saved.error();
        EXPECT_EQ(state(), before + " 0");
    }
    EXPECT_TRUE(file.save(sampleInventory()));
    const auto nowhere = InventoryFile(path / "inventory.json").save(sampleInventory());
    ASSERT_FALSE(nowhere);
    EXPECT_NE(nowhere.error().find(path.string()), std::string::npos) << nowhere.error();
    EXPECT_EQ(loaded(), sampleInventory());
}

TEST_F(InventoryFileTest, KeepsBesideTheNewOneWhatItDidNotWrite) {
    directory.write("inventory.json", "first");
    directory.write("inventory.json.kept", "older");
    ASSERT_FALSE(file.load());
    const auto saved = file.save(sampleInventory());
    ASSERT_TRUE(saved) << saved.error();
    ASSERT_TRUE(saved->kept);
    EXPECT_EQ(saved->kept->filename(), "inventory.json.kept.2");
    EXPECT_EQ(*readFile(*saved->kept), "first");
    EXPECT_EQ(*readFile(directory.path() / "inventory.json.kept"), "older");
    // The next save replaces what this one wrote, but not what another program did meanwhile.
    const auto again = file.save(Inventory());
    ASSERT_TRUE(again) << again.error();
    EXPECT_FALSE(again->kept);
    directory.write("inventory.json", formatInventory(sampleInventory()));
    const auto third = file.save(Inventory());
    ASSERT_TRUE(third && third->kept);
    EXPECT_EQ(*readFile(*third->kept), formatInventory(sampleInventory()));
}

TEST_F(InventoryFileTest, WritesThroughALink) {
    const fs::path real = directory.write("real.json", formatInventory(Inventory()));
    fs::create_symlink(real, path);
    InventoryFile link(path);
    ASSERT_TRUE(link.load());
    ASSERT_TRUE(link.save(sampleInventory()));
    EXPECT_TRUE(fs::is_symlink(path));
    EXPECT_EQ(*readFile(real), formatInventory(sampleInventory()));
}

std::string onus(const std::string& list) {
    return R"({"format":1,"profiles":[{"name":"p","version":"v2c","readCommunity":"r"}],"onus":)" +
           list + "}";
}

std::string profiles(const std::string& list) {
    return R"({"format":1,"profiles":)" + list + "}";
}

constexpr const char* kOnu =
    R"({"name":"a","agent":"10.0.0.1","onu":"1.1.1","menu":"m.xml","profile":"p"})";

const std::pair<std::string, const char*> kBadFiles[] = {
    {"", "at byte 0"},
    {"<xml/>", "at byte"},
    {formatInventory(sampleInventory()).substr(0, 200), "at byte"},
    {std::string(64, '\0'), "at byte"},
    {"{\"format\":1,\"onus\":\"\xff\xfe\"}", "at byte"},
    {std::string(100000, '['), "at byte"},
    {"[]", "format 1"},
    {"{}", "format 1"},
    {R"({"format":2})", "format 1"},
    {R"({"format":"1"})", "format 1"},
    {R"({"format":1,"extra":{}})", "\"extra\" is not known"},
    {R"({"format":1,"onus":{}})", "onus must be a list"},
    {onus("[7]"), "onus[0]: must be an object"},
    {onus(R"([{"nmae":"a"}])"), "onus[0]: \"nmae\" is not known"},
    {onus(R"([{"name":5}])"), "onus[0]: name must be a text"},
    {onus(R"([{"name":"a"}])"), "onus[0]: Agent is missing"},
    {onus("[" + std::string(kOnu) + "," + kOnu + "]"), "onus[1]: There is already"},
    {onus(R"([{"name":"a\u0000b"}])"), "onus[0]: Name contains a control"},
    {onus(R"([{"locale":10.5}])"), "onus[0]: locale must be a whole number"},
    {onus(R"([{"locale":1e300}])"), "onus[0]: locale must be a whole number"},
    {profiles(R"([{"name":"p","version":"v4"}])"), "profiles[0]: version \"v4\" is not known"},
    {profiles(R"([{"name":"p","version":"v3","user":"u","level":"authNoPriv",)"
              R"("authProtocol":"MD5","authPassphrase":"1234567"}])"),
     "profiles[0]: Authentication pass phrase needs at least 8"},
    {formatInventory(Inventory()) + std::string(kMaxTextFileBytes, ' '), "larger"},
};

TEST_F(InventoryFileTest, ABadFileIsNamedWithTheReasonAndLeft) {
    EXPECT_EQ(loaded(), Inventory()) << "no file is no bad one";
    for (const auto& [bytes, reason] : kBadFiles) {
        directory.write("inventory.json", bytes);
        const Result<Inventory> read = file.load();
        ASSERT_FALSE(read) << reason;
        EXPECT_TRUE(read.error().starts_with(path.string() + ": ")) << read.error();
        EXPECT_NE(read.error().find(reason), std::string::npos) << read.error();
        EXPECT_EQ(fs::file_size(path), bytes.size());
    }
    ASSERT_EQ(::mkfifo((directory.path() / "pipe").c_str(), 0600), 0);
    for (const fs::path& other : {directory.path(), directory.path() / "pipe"}) {
        const Result<Inventory> read = InventoryFile(other).load();
        ASSERT_FALSE(read) << other;
        EXPECT_EQ(read.error(), other.string() + ": is no regular file");
    }
}

} // namespace

} // namespace onudesk::desk
