#include "platform/file_replacer.h"
#include "platform/guarded_write.h"

#include <array>
#include <cerrno>
#include <memory>
#include <string>

#include <sys/acl.h>
#include <sys/stat.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "support/ended_process.h"
#include "support/temporary_folder.h"
#include "unit/platform/faulty_file_layer.h"

namespace zb {
namespace {

namespace fs = std::filesystem;
using test::FaultyFileLayer;
using test::namesIn;
using test::readFile;
using test::writeFile;
using Names = std::set<std::string>;

// Lists are compared as text, one entry a line. Empty where the file system has none.
std::string listOf(const fs::path& path, acl_type_t type = ACL_TYPE_ACCESS) {
    const std::unique_ptr<std::remove_pointer_t<acl_t>, int (*)(void*)> list(
        ::acl_get_file(path.c_str(), type), ::acl_free);
    if (list == nullptr)
        return {};
    const std::unique_ptr<char, int (*)(void*)> text(::acl_to_text(list.get(), nullptr), ::acl_free);
    return text.get();
}

bool setList(const fs::path& path, const char* text, acl_type_t type = ACL_TYPE_ACCESS) {
    const std::unique_ptr<std::remove_pointer_t<acl_t>, int (*)(void*)> list(::acl_from_text(text),
                                                                             ::acl_free);
    return ::acl_set_file(path.c_str(), type, list.get()) == 0;
}

std::string attributeOf(const fs::path& path, const char* name) {
    std::array<char, 64> value{};
    const ssize_t length = ::getxattr(path.c_str(), name, value.data(), value.size());
    return length < 0 ? "none" : std::string(value.data(), static_cast<std::size_t>(length));
}

unsigned modeOf(const fs::path& path) {
    struct stat status {};
    return ::stat(path.c_str(), &status) == 0 ? status.st_mode & 07777U : 0;
}

class FileRights : public testing::Test {
protected:
    FileRights() { writeFile(path, "old content"); }

    test::TemporaryFolder folder;
    fs::path path = folder / "a.zbp";
};

constexpr const char* kList = "user::rw-,user:65534:r--,group::---,mask::r--,other::---";

TEST_F(FileRights, AnAccessControlListStaysAndNobodyGetsMore) {
    ASSERT_TRUE(setList(path, kList)) << "the folder of temporary files has no access control lists";
    const std::string before = listOf(path);
    ASSERT_TRUE(replaceFile(path, "new"));
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(listOf(path), before);
    EXPECT_EQ(namesIn(folder.path()), Names{"a.zbp"});
}

TEST_F(FileRights, TheListThatAFolderGivesItsNewFilesDoesNotComeToAnOldOne) {
    fs::permissions(path, fs::perms(0660));
    ASSERT_TRUE(
        setList(folder.path(), "user::rwx,user:65534:rwx,group::rwx,mask::rwx,other::rwx", ACL_TYPE_DEFAULT));
    const std::string before = listOf(path);
    ASSERT_TRUE(replaceFile(path, "new"));
    EXPECT_EQ(listOf(path), before);
}

TEST_F(FileRights, AttributesOfUsersStay) {
    ASSERT_EQ(::setxattr(path.c_str(), "user.reviewer", "Kim", 3, 0), 0);
    ASSERT_TRUE(replaceFile(path, "new"));
    EXPECT_EQ(attributeOf(path, "user.reviewer"), "Kim");
}

TEST_F(FileRights, AFileOfSeveralNamesKeepsThem) {
    fs::create_hard_link(path, folder / "other name");
    ASSERT_TRUE(replaceFile(path, "new"));
    EXPECT_EQ(readFile(folder / "other name"), "new");
    ASSERT_TRUE(replaceFile(path, "longer than it was before"));
    EXPECT_EQ(readFile(folder / "other name"), "longer than it was before");
    EXPECT_EQ(fs::hard_link_count(path), 2U);
    EXPECT_EQ(namesIn(folder.path()), Names({"a.zbp", "other name"}));
}

TEST_F(FileRights, AFileWhoseListCannotBeCopiedIsWrittenInItsPlace) {
    ASSERT_TRUE(setList(path, kList));
    const std::string before = listOf(path);
    FaultyFileLayer layer("copyAccess", EPERM);
    ASSERT_TRUE(replaceFile(layer, path, "new"));
    EXPECT_GT(layer.faults(), 0);
    EXPECT_EQ(readFile(path), "new");
    EXPECT_EQ(listOf(path), before);
    EXPECT_EQ(namesIn(folder.path()), Names{"a.zbp"});
}

class GuardedWriteFault : public testing::TestWithParam<std::pair<const char*, int>> {};

TEST_P(GuardedWriteFault, LeavesTheOldBytesAndNoLitter) {
    const test::TemporaryFolder folder;
    writeFile(folder / "a.zbp", "old content");
    fs::create_hard_link(folder / "a.zbp", folder / "b.zbp");
    FaultyFileLayer layer(GetParam().first, GetParam().second);
    const Result<void> result = replaceFile(layer, folder / "a.zbp", "new");
    ASSERT_FALSE(result);
    EXPECT_EQ(result.error().number, GetParam().second);
    EXPECT_THAT(result.error().description, testing::StartsWith("Cannot "));
    EXPECT_EQ(readFile(folder / "b.zbp"), "old content");
    EXPECT_EQ(namesIn(folder.path()), Names({"a.zbp", "b.zbp"}));
}

INSTANTIATE_TEST_SUITE_P(Calls, GuardedWriteFault,
                         testing::Values(std::pair("create", EROFS), std::pair("write", ENOSPC),
                                         std::pair("sync", EIO), std::pair("checkWritable", EACCES)),
                         [](const auto& fault) { return fault.param.first; });

TEST_F(FileRights, WhatWasThereIsInTheGuardWhereItCannotBePutBack) {
    fs::create_hard_link(path, folder / "b.zbp");
    FaultyFileLayer layer("truncate", EIO);
    const Result<void> result = replaceFile(layer, path, "new");
    ASSERT_FALSE(result);
    const std::string guard = ".a.zbp.zbguard-" + std::to_string(::getpid());
    EXPECT_THAT(result.error().description, testing::HasSubstr("What was in it is in "));
    EXPECT_THAT(result.error().description, testing::EndsWith(guard));
    EXPECT_EQ(readFile(folder / guard), "zbguard 11 3\nold contentnew");
}

struct Stop {
    const char* found;
    const char* expected;
    bool guardStays;
};

class GuardedWriteStop : public testing::TestWithParam<Stop> {};

TEST_P(GuardedWriteStop, IsCompletedAtTheNextRead) {
    const test::TemporaryFolder folder;
    const fs::path path = folder / "a.zbp";
    const std::string guard = ".a.zbp.zbguard-" + test::endedProcess();
    writeFile(path, GetParam().found);
    writeFile(folder / guard, "zbguard 6 9\n111111222222222");
    SystemFileLayer layer;
    finishGuardedWrite(layer, path);
    EXPECT_EQ(readFile(path), GetParam().expected);
    EXPECT_EQ(fs::exists(folder / guard), GetParam().guardStays);
}

INSTANTIATE_TEST_SUITE_P(States, GuardedWriteStop,
                         testing::Values(Stop{"111111", "111111", false}, Stop{"221111", "222222222", false},
                                         Stop{"2222222", "222222222", false},
                                         Stop{"222222222", "222222222", false},
                                         Stop{"of others", "of others", true}, Stop{"", "", true}));

TEST_F(FileRights, AGuardThatIsIncompleteBelongsToNoWrite) {
    const std::string guard = ".a.zbp.zbguard-" + test::endedProcess();
    writeFile(folder / guard, "zbguard 600 9\nold co");
    SystemFileLayer layer;
    finishGuardedWrite(layer, path);
    EXPECT_EQ(readFile(path), "old content");
    EXPECT_EQ(namesIn(folder.path()), Names{"a.zbp"});
}

TEST_F(FileRights, ANewPrivateFileIsReadByItsUserAlone) {
    SystemFileLayer layer;
    ASSERT_TRUE(replacePrivateFile(layer, folder / "b", "x"));
    EXPECT_EQ(modeOf(folder / "b"), 0600U);
    fs::permissions(path, fs::perms(0644));
    ASSERT_TRUE(replacePrivateFile(layer, path, "x"));
    EXPECT_EQ(modeOf(path), 0644U);
}

TEST_F(FileRights, AGuardBesideALinkReachesNoFileElsewhere) {
    fs::create_directory(folder / "received");
    fs::create_symlink(path, folder / "received/b.zbp");
    const std::string guard = ".b.zbp.zbguard-" + test::endedProcess();
    writeFile(folder / "received" / guard, "zbguard 0 16\nold content, evil");
    SystemFileLayer layer;
    finishGuardedWrite(layer, folder / "received/b.zbp");
    EXPECT_EQ(readFile(path), "old content");
}

} // namespace
} // namespace zb
