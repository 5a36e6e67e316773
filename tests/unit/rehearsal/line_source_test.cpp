#include "rehearsal/line_source.h"

#include "platform/text_file.h"
#include "support/temporary_folder.h"

#include <fstream>
#include <gtest/gtest.h>
#include <sys/stat.h>

namespace zb::test {
namespace {

std::string bigEndian(std::string bytes) {
    for (std::size_t at = 0; at + 1 < bytes.size(); at += 2)
        std::swap(bytes[at], bytes[at + 1]);
    return bytes;
}

/// The lines of a file with these bytes, each ended by LF.
std::string linesOf(const std::string& bytes) {
    const TemporaryFolder folder;
    const auto path = folder / "recording";
    std::ofstream(path, std::ios::binary) << bytes;
    auto opened = rehearsal::LineSource::open(path);
    if (!opened)
        return opened.error().description;
    rehearsal::LineSource source = *std::move(opened);
    std::string text;
    while (const auto line = source.next())
        text.append(*line).append("\n");
    return text;
}

TEST(LineSource, ReadsUtf16LikeUtf8WhereverItsPiecesEnd) {
    // Pairs of surrogates, of which the end of a piece may split any.
    std::string line;
    for (int i = 0; i < 1000; ++i)
        line += "\U0001F600\u00E9x";
    std::string text;
    for (int i = 0; i < 60; ++i)
        text += std::to_string(i) + line + "\n";
    for (const std::string shift : {"", "a", "ab", "abc"}) {
        const std::string bytes = encodeUtf16(shift + text);
        EXPECT_TRUE(linesOf(bytes) == shift + text) << shift;
        EXPECT_TRUE(linesOf(bigEndian(bytes)) == shift + text) << shift;
    }
}

TEST(LineSource, ReadsUtf16ThatEndsInTheMiddleOfACharacter) {
    const std::string bytes = encodeUtf16("one\r\ntwo");
    EXPECT_EQ(linesOf(bytes), "one\ntwo\n");
    EXPECT_EQ(linesOf(bytes + "x"), "one\ntwo\n") << "the odd byte is dropped";
    EXPECT_EQ(linesOf(bytes + "\x3D\xD8"), "one\ntwo\uFFFD\n") << "half of a pair";
    EXPECT_EQ(linesOf("\xFF\xFE"), "");
}

TEST(LineSource, PassesTheMarkOfUtf8) {
    EXPECT_EQ(linesOf("\xEF\xBB\xBFone\ntwo"), "one\ntwo\n");
    EXPECT_EQ(linesOf("\xEF\xBB"), "\xEF\xBB\n") << "no mark";
    EXPECT_EQ(linesOf(""), "");
}

TEST(LineSource, OpensOnlyFiles) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    const auto faultOf = [](const std::filesystem::path& path) {
        return rehearsal::LineSource::open(path).error();
    };
    EXPECT_EQ(faultOf(folder / "missing"), (FileError{ENOENT, "No such file or directory"}));
    EXPECT_EQ(faultOf(folder.path()), (FileError{EISDIR, "Is a directory"}));
    EXPECT_EQ(faultOf(folder / "pipe"), (FileError{EINVAL, "Not a regular file"}));
    EXPECT_EQ(faultOf("/dev/zero"), (FileError{EINVAL, "Not a regular file"}));
}

} // namespace
} // namespace zb::test
