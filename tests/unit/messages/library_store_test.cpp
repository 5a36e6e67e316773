#include "messages/library_store.h"

#include "messages/libraries/built_in.h"
#include "messages/mdf_text.h"
#include "messages/sml_text.h"
#include "platform/text_file.h"
#include "support/temporary_folder.h"
#include "unit/messages/workbench.h"

#include <gtest/gtest.h>

#include <fstream>

namespace zb {
namespace {

using test::crlf;

using Lines = std::vector<std::string>;

class LibraryStore : public testing::Test {
protected:
    std::string write(const std::string& name, const std::string& bytes) {
        std::string path = (folder.path() / name).string();
        std::ofstream(path, std::ios::binary) << bytes;
        return path;
    }
    static Lines texts(const SECSLibraryStore& store) {
        Lines all;
        for (const SECSMessageRecord* record : store.getMessages())
            all.push_back(record->getHeadText() + "\r\n" + record->getBodyText());
        return all;
    }
    static Lines names(const SECSLibraryStore::Records& records) {
        Lines all;
        for (const SECSMessageRecord* record : records)
            all.emplace_back(record->getName());
        return all;
    }
    void loadSemi() {
        for (const std::string& block : semiLibraryBlocks())
            ASSERT_EQ(store.load(block, kFormatSemi), "");
    }

    test::TemporaryFolder folder;
    SECSLibraryStore store{CodePage(1252)};
};

TEST_F(LibraryStore, RowsHoldNameNumbersAndDescription) {
    store.load(
        crlf({"* Are You There Request", "AreYouThere: S1 F1 W <R> H<->E.", "* A\\B", "X: S2 F4 H->E."}),
        kFormatGem);
    EXPECT_EQ(store.getRows(), (Lines{"AreYouThere\\1\\1\\Are You There Request", "X\\2\\4\\A\\B"}));
}

TEST_F(LibraryStore, EachLoadAddsToWhatIsHeld) {
    loadSemi();
    EXPECT_EQ(store.getMessages().size(), 357u);
    EXPECT_EQ(names(store.getByStreamFunction("S1 F13")), (Lines{"ConnectHost", "ConnectEquip"}));
    EXPECT_EQ(names(store.getByStreamFunction("S17 F14")), (Lines{"S17F14"}));
    EXPECT_EQ(names(store.getByStreamFunction("S99 F1")), Lines{});
    EXPECT_EQ(names(store.getByStreamFunction("what")), Lines{});
    EXPECT_TRUE(store.findings().empty());
}

TEST_F(LibraryStore, GemIsReadWithoutAFinding) {
    EXPECT_EQ(store.load(gemLibraryText(), kFormatGem), "");
    EXPECT_EQ(store.getMessages().size(), 93u);
    EXPECT_TRUE(store.findings().empty());
}

TEST_F(LibraryStore, MissingEmptyAndForeignFilesAreNotInTheFormat) {
    const std::string empty = write("empty", "");
    const std::string foreign = write("foreign", "Dear reader,\nthis is: no message.\n");
    for (const int format : {kFormatSmd, kFormatMdf, kFormatSml}) {
        EXPECT_NE(store.load((folder.path() / "none").string(), format), "");
        EXPECT_NE(store.load(folder.path().string(), format), "");
        EXPECT_NE(store.load(empty, format), "");
        EXPECT_NE(store.load(foreign, format), "");
    }
    EXPECT_NE(store.load("", kFormatGem), "");
    EXPECT_NE(store.load(empty, 1006), "");
    EXPECT_TRUE(store.getMessages().empty());
}

TEST_F(LibraryStore, SmdMayBeWrittenCarelessly) {
    const std::string path =
        write("a.smd", "* Title  \nA:  S1\tF1  W H->E \n\t<l 2\t \n  <a  3 N 'a  b'>\n <u1 1 0>\n>.  \n");
    EXPECT_EQ(store.load(path, kFormatSmd), "");
    EXPECT_EQ(texts(store), (Lines{"Title\r\nA: S1 F1 W H->E\r\n1 L 2\r\n2 A 3 N 'a  b'\r\n2 U1 1 0\r\n"}));
}

TEST_F(LibraryStore, TabsPartTheWordsOfAHead) {
    EXPECT_EQ(store.load(write("a.smd", "A:\tS1\tF1\tW\tH->E\t\n<L 0>.\n"), kFormatSmd), "");
    EXPECT_EQ(texts(store), (Lines{"\r\nA: S1 F1 W H->E\r\n1 L 0\r\n"}));
}

TEST_F(LibraryStore, SmdMayBeInProjectForm) {
    EXPECT_EQ(store.load(crlf({"* T", "A: S1 F1 H->E", "    L 1", "        U1 1 0."}), kFormatGem), "");
    EXPECT_EQ(texts(store), (Lines{"T\r\nA: S1 F1 H->E\r\n1 L 1\r\n2 U1 1 0\r\n"}));
}

TEST_F(LibraryStore, FilesAreUnicodeOrInTheCodePage) {
    const std::string text = "* Gr\xc3\xbc\xc3\x9f"
                             "e\r\nA: S1 F1 H->E.\r\n";
    const Lines expected{"Gr\xc3\xbc\xc3\x9f"
                         "e\r\nA: S1 F1 H->E\r\n"};
    for (const std::string& bytes :
         {text, "\xef\xbb\xbf" + text, encodeUtf16(text), CodePage(1252).fromUtf8(text)}) {
        SECSLibraryStore fresh{CodePage(1252)};
        EXPECT_EQ(fresh.load(write("a.smd", bytes), kFormatSmd), "");
        EXPECT_EQ(texts(fresh), expected);
    }
}

TEST_F(LibraryStore, BrokenMessagesAreReportedAndTheOthersRead) {
    const std::string path =
        write("a.smd", crlf({"A: S1 F1 H->E.", "B: Sx F1 H->E.", "C: S1 F3 H->E", "    <L 1", "."}));
    EXPECT_EQ(store.load(path, kFormatSmd), "");
    EXPECT_EQ(names(store.getMessages()), (Lines{"A", "C"}));
    ASSERT_EQ(store.findings().size(), 2u);
    EXPECT_EQ(store.findings()[0].place.line, 2u);
    EXPECT_EQ(store.findings()[0].text, "The stream is not \"S\" and a number");
}

TEST_F(LibraryStore, SmlIsReadWithItsFindings) {
    EXPECT_EQ(store.load(write("a.sml", "* Ask\nS1F1 W H->E.\nS6F12 W <B 0>.\nS1F3 <U1 2.5>."), kFormatSml),
              "");
    EXPECT_EQ(texts(store),
              (Lines{"Ask\r\nS1F1: S1 F1 W H->E\r\n", "\r\nS6F12: S6 F12 W H<->E\r\n1 B 1 0\r\n"}));
    EXPECT_EQ(store.findings(), (Findings{{Severity::Warning, FindingPlace::atLine(3, 1),
                                           "W is set on an even function, which is a reply"},
                                          {Severity::Error, FindingPlace::atLine(4, 10),
                                           "expected a whole number from 0 to 255, found \"2.5\""}}));
}

TEST_F(LibraryStore, EveryLibraryMessageComesBackFromEachForm) {
    loadSemi();
    const Lines expected = texts(store);
    std::string smd;
    for (const std::string& block : semiLibraryBlocks())
        smd += block;
    const struct {
        int format;
        std::string bytes;
    } forms[] = {{kFormatSmd, smd},
                 {kFormatMdf, composeMdf(store.getMessages())},
                 {kFormatSml, composeSml(store.getMessages())}};
    for (const auto& form : forms) {
        SECSLibraryStore fresh{CodePage(1252)};
        EXPECT_EQ(fresh.load(write("library", form.bytes), form.format), "");
        EXPECT_EQ(texts(fresh), expected) << form.format;
        EXPECT_TRUE(fresh.findings().empty()) << form.format << ": " << fresh.findings().front().text;
    }
}

TEST_F(LibraryStore, AProjectOfAllMessagesPassesTheChecksAndBuilds) {
    loadSemi();
    test::Workbench bench;
    for (const SECSMessageRecord* record : store.getMessages())
        ASSERT_EQ(addMessageToTree(bench.tree, *record), "");
    EXPECT_EQ(bench.walk(WalkMode::Modeler).status, "");
    EXPECT_EQ(bench.walk(WalkMode::BuildSmd).status, "");
    const std::string path = write("all.smd", bench.store->allTexts());
    SECSLibraryStore built{CodePage(1252)};
    EXPECT_EQ(built.load(path, kFormatSmd), "");
    EXPECT_EQ(texts(built).size(), 357u);
    EXPECT_TRUE(built.findings().empty());
}

TEST_F(LibraryStore, SmlKeepsWhatSmlHasNoWordFor) {
    const std::string smd =
        crlf({"* A \"title\"; with * marks // and <L>", "A: S1 F1 W <R> <NL> H<-E", "    <L 20V LISTS [K]",
              "        <L 3", "            <A 7 MDLN 'say \"x\"' [K]>", "            <X 16V SV ''>",
              "            <BOOLEAN 2 True False>", "        >", "    >", "    <F4 1 -1.5>.",
              "B: S128 F255 H->E", "    <B 10V DATA 0 255>", "    <A 4 'C:\\\\'>", "    <J 0 ''>."});
    ASSERT_EQ(store.load(smd, kFormatGem), "");
    SECSLibraryStore fresh{CodePage(1252)};
    ASSERT_EQ(fresh.load(write("a.sml", composeSml(store.getMessages())), kFormatSml), "");
    EXPECT_EQ(texts(fresh), texts(store)) << composeSml(store.getMessages());
}

TEST_F(LibraryStore, SmlIsWrittenInOneForm) {
    ASSERT_EQ(store.load(crlf({"* Title", "A: S1 F3 W H->E", "    <L 20V SVIDCOUNT", "        <I2 1 SVID 0>",
                               "    >.", "B: S1 F2 H<-E."}),
                         kFormatGem),
              "");
    EXPECT_EQ(composeSml(store.getMessages()),
              crlf({"// Title", "A: S1F3 W // H->E", "  <L[0..20] // SVIDCOUNT", "    <I2[1] 0> // SVID",
                    "  >", ".", "", "B: S1F2 // H<-E", ".", ""}));
}

TEST_F(LibraryStore, LoadingReportsHowFarItIsAndEndsWhenItIsCancelled) {
    SECSLibraryStore semi{CodePage(1252)};
    for (const std::string& block : semiLibraryBlocks())
        semi.load(block, kFormatSemi);
    const struct {
        int format;
        std::string path;
    } files[] = {{kFormatSml, write("a.sml", composeSml(semi.getMessages()))},
                 {kFormatMdf, write("a.mdf", composeMdf(semi.getMessages()))}};
    for (const auto& file : files) {
        LongWork work;
        SECSLibraryStore loaded{CodePage(1252)};
        EXPECT_EQ(loaded.load(file.path, file.format, Progress(work)), "");
        EXPECT_GT(work.done(), 0.9);
        EXPECT_LE(work.done(), 1);
        work.cancel();
        SECSLibraryStore cancelled{CodePage(1252)};
        EXPECT_THROW(cancelled.load(file.path, file.format, Progress(work)), Cancelled);
    }
}

} // namespace
} // namespace zb
