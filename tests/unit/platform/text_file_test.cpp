#include "platform/text_file.h"

#include <cerrno>

#include <sys/stat.h>

#include <gtest/gtest.h>

#include "platform/text.h"
#include "platform/utf16.h"
#include "support/temporary_folder.h"

namespace zb {
namespace {

using test::TemporaryFolder;
using test::writeFile;

std::string bytesOf(std::u16string_view units, ByteOrder order) {
    std::string bytes;
    for (const char16_t unit : units) {
        const char low = static_cast<char>(unit & 0xFFU);
        const char high = static_cast<char>(unit >> 8U);
        bytes += order == ByteOrder::LittleEndian ? low : high;
        bytes += order == ByteOrder::LittleEndian ? high : low;
    }
    return bytes;
}

TEST(ReadBytes, GivesAFileAsItIs) {
    const TemporaryFolder folder;
    const std::string bytes = std::string("a\0\xFF\r\n", 5) + std::string(200'000, 'x');
    writeFile(folder / "file", bytes);
    const Result<std::string> read = readBytes(folder / "file");
    ASSERT_TRUE(read.ok());
    EXPECT_EQ(*read, bytes);
}

TEST(ReadBytes, RefusesAFileThatIsTooLargeWithItsSize) {
    const TemporaryFolder folder;
    writeFile(folder / "file", "");
    std::filesystem::resize_file(folder / "file", kLargestReadable + 1); // takes no room on the disk
    EXPECT_EQ(readBytes(folder / "file").error(),
              (FileError{EFBIG, "The file has 513 MiB, and at most 512 MiB are read"}));
}

TEST(ReadBytes, RefusesWhatIsNoFile) {
    const TemporaryFolder folder;
    ASSERT_EQ(::mkfifo((folder / "pipe").c_str(), 0600), 0);
    EXPECT_EQ(readBytes(folder / "missing").error(), (FileError{ENOENT, "No such file or directory"}));
    EXPECT_EQ(readBytes(folder.path()).error(), (FileError{EISDIR, "Is a directory"}));
    EXPECT_EQ(readBytes(folder / "pipe").error(), (FileError{EINVAL, "Not a regular file"}));
    EXPECT_EQ(readBytes("/dev/zero").error(), (FileError{EINVAL, "Not a regular file"}));
    EXPECT_EQ(readBytes(folder / "missing" / "file").error().number, ENOENT);
}

struct DecodeRow {
    std::string name;
    std::string bytes;
    std::string text;
};

class LibraryText : public testing::TestWithParam<DecodeRow> {};

TEST_P(LibraryText, IsToldByMarkThenByValidity) {
    EXPECT_EQ(decodeText(GetParam().bytes, CodePage(949)), GetParam().text);
    EXPECT_EQ(decodeText(std::string(GetParam().bytes), CodePage(949)), GetParam().text);
}

INSTANTIATE_TEST_SUITE_P(
    Rows, LibraryText,
    testing::Values(DecodeRow{"empty", "", ""}, DecodeRow{"ascii", "a\r\nb", "a\r\nb"},
                    DecodeRow{"utf8", "한", "한"}, DecodeRow{"utf8Marked", "\xEF\xBB\xBFé", "é"},
                    DecodeRow{"utf8MarkedBroken", "\xEF\xBB\xBFx\xE9", "x\uFFFD"},
                    DecodeRow{"codePage", "\xC7\xD1", "한"},
                    DecodeRow{"littleEndian", std::string("\xFF\xFE") + "\x5C\xD5", "한"},
                    DecodeRow{"bigEndian", std::string("\xFE\xFF") + "\xD5\x5C", "한"},
                    DecodeRow{"oddByte", std::string("\xFF\xFE") + "\x5C\xD5" + "x", "한"}),
    [](const auto& row) { return row.param.name; });

TEST(LibraryText, IsReadInTheCodePageWhenAsked) {
    EXPECT_EQ(decodeText("\xC3\xA9", CodePage(1252), DecodeAs::CodePage), "Ã©");
}

struct ProjectRow {
    std::string name;
    std::string bytes;
    std::string text;
    ProjectEncoding encoding;
    std::string fault;
};

class ProjectBytes : public testing::TestWithParam<ProjectRow> {};

TEST_P(ProjectBytes, AreJudgedAndDecoded) {
    const ProjectText project = decodeProject(GetParam().bytes);
    EXPECT_EQ(project.text, GetParam().text);
    EXPECT_EQ(project.encoding, GetParam().encoding);
    EXPECT_EQ(project.fault, GetParam().fault);
    EXPECT_TRUE(isValidUtf8(project.text));
}

constexpr auto kLittle = ByteOrder::LittleEndian;
constexpr auto kBig = ByteOrder::BigEndian;
const std::string kCut = "the file ends in the middle of a character";
const std::string kEmpty = "the file is empty";
const std::string kUtf8Fault = "the file is UTF-8 text, and a project file is UTF-16 text";
const std::string kNoText = "the file is no UTF-16 text";

INSTANTIATE_TEST_SUITE_P(Good, ProjectBytes,
                         testing::Values(ProjectRow{"littleEndian", bytesOf(u"\uFEFFa한𝄞\r\n", kLittle),
                                                    "a한𝄞\r\n", ProjectEncoding::Utf16LittleEndian, ""},
                                         ProjectRow{"bigEndian", bytesOf(u"\uFEFFabcdefgh한𝄞\r\n", kBig),
                                                    "abcdefgh한𝄞\r\n", ProjectEncoding::Utf16BigEndian, ""},
                                         ProjectRow{"unmarkedLittleEndian",
                                                    bytesOf(u"\r\n###[한글]", kLittle), "\r\n###[한글]",
                                                    ProjectEncoding::Utf16LittleEndian, ""},
                                         ProjectRow{"unmarkedBigEndian", bytesOf(u"\r\n###[한글]", kBig),
                                                    "\r\n###[한글]", ProjectEncoding::Utf16BigEndian, ""}),
                         [](const auto& row) { return row.param.name; });

INSTANTIATE_TEST_SUITE_P(Faulty, ProjectBytes,
                         testing::Values(ProjectRow{"empty", "", "", ProjectEncoding::Unknown, kEmpty},
                                         ProjectRow{"markOnly", "\xFF\xFE", "",
                                                    ProjectEncoding::Utf16LittleEndian, kEmpty},
                                         ProjectRow{"oddByte", bytesOf(u"\uFEFFab", kLittle) + "c", "ab",
                                                    ProjectEncoding::Utf16LittleEndian, kCut},
                                         ProjectRow{"unmarkedOddByte", bytesOf(u"ab", kLittle) + "c", "ab",
                                                    ProjectEncoding::Utf16LittleEndian, kCut},
                                         ProjectRow{"halfPair", bytesOf(u"\uFEFFa", kLittle) + "\x34\xD8",
                                                    "a\uFFFD", ProjectEncoding::Utf16LittleEndian, kCut},
                                         ProjectRow{"utf8", "a한", "a한", ProjectEncoding::Utf8, kUtf8Fault},
                                         ProjectRow{"utf8Marked",
                                                    "\xEF\xBB\xBF"
                                                    "a한",
                                                    "a한", ProjectEncoding::Utf8, kUtf8Fault},
                                         ProjectRow{"oneByteText", "\xC7\xD1\xB1\xDB", "퇇\uFFFD",
                                                    ProjectEncoding::Unknown, kNoText},
                                         ProjectRow{"nulBytes", std::string(4, '\0'), std::string(2, '\0'),
                                                    ProjectEncoding::Unknown, kNoText}),
                         [](const auto& row) { return row.param.name; });

TEST(ProjectBytesWithLoneSurrogates, AreCountedAndReplaced) {
    const ProjectText project =
        decodeProject(bytesOf(u"\uFEFFa", kLittle) + "\x34\xD8" + bytesOf(u"bc", kLittle));
    EXPECT_EQ(project.text, "a\uFFFDbc");
    EXPECT_EQ(project.replacements, 1U);
    EXPECT_TRUE(project.marked);
    EXPECT_EQ(project.fault, "");
}

TEST(ProjectBytes, ComeBackFromTheEncoder) {
    std::string text;
    for (int i = 0; i < 4000; ++i)
        text += std::string(static_cast<std::size_t>(i % 19), 'x') + (i % 3 == 0 ? "한" : "é𝄞") + "\r\n";
    const std::string bytes = encodeUtf16(text);
    EXPECT_EQ(bytes.substr(0, 2), "\xFF\xFE");
    EXPECT_EQ(decodeProject(bytes).text, text);
    std::string swapped = bytes;
    for (std::size_t i = 0; i < swapped.size(); i += 2)
        std::swap(swapped[i], swapped[i + 1]);
    EXPECT_EQ(decodeProject(swapped).text, text);
}

TEST(Utf16Encoder, MarksAndReplaces) {
    EXPECT_EQ(encodeUtf16(""), "\xFF\xFE");
    EXPECT_EQ(encodeUtf16("a\xFF"), bytesOf(u"\uFEFFa\uFFFD", kLittle));
    EXPECT_EQ(encodeUtf16("𝄞\n"), bytesOf(u"\uFEFF𝄞\n", kLittle));
}

std::vector<std::string> linesOf(std::string_view text) {
    std::vector<std::string> lines;
    LineReader reader(text);
    while (const auto line = reader.next())
        lines.emplace_back(*line);
    EXPECT_EQ(reader.lineNumber(), lines.size());
    EXPECT_TRUE(reader.atEnd());
    return lines;
}

TEST(LineReader, GivesLinesWithoutTheirEnds) {
    using Lines = std::vector<std::string>;
    EXPECT_EQ(linesOf(""), Lines());
    EXPECT_EQ(linesOf("a"), Lines({"a"}));
    EXPECT_EQ(linesOf("a\r\nb\nc\r\n"), Lines({"a", "b", "c"}));
    EXPECT_EQ(linesOf("\r\n\n"), Lines({"", ""}));
    EXPECT_EQ(linesOf("a\rb\r\r\n"), Lines({"a\rb\r"}));
    EXPECT_EQ(linesOf("a \n b"), Lines({"a ", " b"}));
}

} // namespace
} // namespace zb
