#include "script_fixture.h"

namespace zb {
namespace {

TEST(ScriptFiles, WritesInTheEncodingAskedFor) {
    expectPasses(
        "writefile ${WORK}/a/b.txt\n  x\xC3\xA9  \n  -\nend\nexpectbytes ${WORK}/a/b.txt 78C3A92020\n"
        "expectbytes ${WORK}/a/b.txt \"78 c3 a9 20 20 0D0A 0D0A\"\n");
    expectPasses("writefile ${WORK}/b.zbp\n  x\nend\nexpectbytes ${WORK}/b.zbp FFFE78000D000A00\n");
    expectPasses("writefile ${WORK}/b.zbp utf8\n  x\nend\nexpectbytes ${WORK}/b.zbp 780D0A\n");
    expectPasses("writefile ${WORK}/b.txt ansi\n  \xC3\xA9\nend\nexpectbytes ${WORK}/b.txt E90D0A\n"
                 "expectfile ${WORK}/b.txt\n  \xC3\xA9\nend\n");
    expectPasses("setting AnsiCodePage 949\nwritefile ${WORK}/b.txt ansi\n  \xEA\xB0\x80\nend\n"
                 "expectbytes ${WORK}/b.txt B0A1\nexpectcontains ${WORK}/b.txt \xEA\xB0\x80\n");
    expectFails("writefile ${WORK}/b.txt utf7\nend\n", "1: expected utf8, utf16 or ansi, found utf7");
}

TEST(ScriptFiles, ReadsFilesLineByLine) {
    expectPasses("writefile ${WORK}/b.txt utf16\n  a\n    b\n  c\nend\nexpectfile ${WORK}/b.txt\n  a\n  "
                 "...\n  c\nend\n"
                 "expectcontains ${WORK}/b.txt \"a\\r\\n  b\"\nexpectlacks ${WORK}/b.txt d\n");
    expectFails("writefile ${WORK}/b.txt\n  a\nend\nexpectfile ${WORK}/b.txt\n  b\nend\n",
                "4: expected \"b\" in line 1, found \"a\" in\n  a");
    expectFails("writefile ${WORK}/b.txt\nend\nexpectfile ${WORK}/b.txt\n  b\nend\n",
                "3: expected \"b\" in line 1, found the end in nothing at all");
}

TEST(ScriptFiles, ReportsWhatFilesHoldInstead) {
    const auto fails = [](const std::string& script) {
        const ScriptOutcome outcome = runScript("writefile ${WORK}/b.txt\n  a\nend\n" + script);
        EXPECT_FALSE(outcome.passed);
        return outcome.err;
    };
    EXPECT_NE(fails("expectcontains ${WORK}/b.txt z\n").find("expected \"z\" in "), std::string::npos);
    EXPECT_NE(fails("expectlacks ${WORK}/b.txt a\n").find("expected no \"a\" in "), std::string::npos);
    EXPECT_NE(fails("expectbytes ${WORK}/b.txt 62\n").find(" to begin with 62, found 61"), std::string::npos);
    EXPECT_NE(fails("expectbytes ${WORK}/b.txt 6\n").find("hexadecimal digits, found 6"), std::string::npos);
    EXPECT_NE(fails("expectnofile ${WORK}/b.txt\n").find(", found a file"), std::string::npos);
    EXPECT_NE(fails("expectfolder ${WORK}/b.txt\n").find(", found something else"), std::string::npos);
    EXPECT_NE(fails("expectfile ${WORK}/none\nend\n").find("expected a readable file "), std::string::npos);
    EXPECT_NE(fails("mkdir ${WORK}/b.txt\n").find("expected a folder "), std::string::npos);
}

TEST(ScriptFiles, LooksAtXml) {
    const std::string xml = "writefile ${WORK}/a.xml\n  <a x=\"1\"><b>t u</b><b> </b></a>\nend\n";
    expectPasses(xml + "expectxml ${WORK}/a.xml /a/@x 1\nexpectxml ${WORK}/a.xml /a/b[1] \"t u\"\n"
                       "expectxml ${WORK}/a.xml count(//b) 2\nexpectxml ${WORK}/a.xml //none \"\"\n"
                       "expectxml ${WORK}/a.xml /a/b[2] \" \"\n");
    const auto errorOf = [](const std::string& script) { return runScript(script).err; };
    EXPECT_NE(
        errorOf(xml + "expectxml ${WORK}/a.xml /a/@x 2\n").find("4: expected /a/@x to be \"2\", found \"1\""),
        std::string::npos);
    EXPECT_NE(errorOf(xml + "expectxml ${WORK}/a.xml /a[ 2\n").find("4: expected an XPath expression"),
              std::string::npos);
    EXPECT_NE(errorOf("writefile ${WORK}/a.xml\n  <a>\nend\nexpectxml ${WORK}/a.xml /a \"\"\n")
                  .find("well-formed XML"),
              std::string::npos);
    EXPECT_NE(errorOf("writefile ${WORK}/a.xml\n  <a/><b/>\nend\nexpectxml ${WORK}/a.xml /a \"\"\n")
                  .find("2 elements at its root"),
              std::string::npos);
}

TEST(ScriptFiles, TakesNothingButWellFormedXml) {
    const auto look = [](const std::string& xml) {
        return "writefile ${WORK}/a.xml\n" + xml + "\nend\nexpectxml ${WORK}/a.xml count(/*) 1\n";
    };
    for (const std::string xml :
         {"<!-- a - b --><a x='\"&lt;>' y=\"&#x41;\">]] &amp;&#65;<![CDATA[&<]]><?p <&?></a><!-- c -->",
          "<?xml version=\"1.0\"?><!DOCTYPE a [<!ENTITY e 'x'>]><a>&e;</a>"})
        expectPasses(look(xml));
    const std::string message = "expected well-formed XML";
    for (const std::string xml : {"<a>x & y</a>", "<a>&nbsp;</a>", "<a>&#1;</a>", "<a x='&'/>", "<a x='<'/>",
                                  "<a x='1' x='2'/>", "<a/>text", "text<a/>", "<a/>&amp;",
                                  "<a><!-- b -- c --></a>", "<a>]]></a>", "\"<a>\\u0001</a>\""}) {
        const ScriptOutcome outcome = runScript(look(xml));
        EXPECT_NE(outcome.err.find(message), std::string::npos) << xml << "\n" << outcome.err;
    }
    const ScriptOutcome outcome = runScript("writefile ${WORK}/a.xml ansi\n<a>\u00e9</a>\nend\n"
                                            "expectxml ${WORK}/a.xml count(/*) 1\n");
    EXPECT_NE(outcome.err.find("bytes that are no UTF-8"), std::string::npos) << outcome.err;
    expectPasses("writefile ${WORK}/a.xml utf16\n<a>\u00e9</a>\nend\nexpectxml ${WORK}/a.xml /a \u00e9\n");
}

TEST(ScriptFiles, CopiesNoFolderIntoItself) {
    const auto outcome = runScript("mkdir ${WORK}/a/b\ncopy ${WORK}/a ${WORK}/a/b/c\n");
    EXPECT_NE(outcome.err.find(":2: expected a target outside "), std::string::npos) << outcome.err;
    expectPasses(
        "mkdir ${WORK}/a/b\ncopy ${WORK}/a ${WORK}/ab\nexpectfolder ${WORK}/ab/b\n"
        "writefile ${WORK}/a/f\n  1\nend\ncopy ${WORK}/a/f ${WORK}/ab\nexpectcontains ${WORK}/ab/f 1\n");
}

TEST(ScriptFiles, MakesCopiesAndRemoves) {
    expectPasses(
        "mkdir ${WORK}/a/b\nexpectfolder ${WORK}/a/b\nwritefile ${WORK}/a/b/c.txt\n  1\nend\n"
        "copy ${WORK}/a ${WORK}/d/e\nexpectfile ${WORK}/d/e/b/c.txt\n  1\nend\n"
        "copy ${WORK}/a/b/c.txt ${WORK}/f/g.txt\nexpectcontains ${WORK}/f/g.txt 1\n"
        "remove ${WORK}/a\nexpectnofile ${WORK}/a\nremove ${WORK}/f/g.txt\nexpectnofile ${WORK}/f/g.txt\n"
        "expectfolder ${WORK}/f\n");
}

TEST(ScriptFiles, RemovesNothingOutsideOfItsWorkFolder) {
    expectFails("remove /scripts\n", "1: expected a path below ${WORK}, found /scripts");
    for (const char* path : {"${WORK}", "${WORK}/..", "${WORK}/a/../..", "${WORK}/../app", "${APP}"}) {
        const ScriptOutcome outcome = runScript(std::string("mkdir ${WORK}/a\nremove ") + path + "\n");
        EXPECT_EQ(outcome.err.find("test.zbs:2: expected a path below ${WORK}, found "), 0U) << outcome.err;
    }
    EXPECT_NE(runScript("remove ${WORK}/none\n").err.find("expected a file or folder "), std::string::npos);
}

TEST(ScriptFiles, ReplacesOneLineAndNothingElse) {
    for (const char* encoding : {"utf8", "utf16", "ansi"}) {
        const std::string write =
            std::string("writefile ${WORK}/a.txt ") + encoding + "\n  a\n  \xC3\xA9\n  ab\nend\n";
        expectPasses(write +
                     "replace ${WORK}/a.txt \xC3\xA9 \"x \xC3\xA9\"\n"
                     "expectfile ${WORK}/a.txt\n  a\n  x \xC3\xA9\n  ab\nend\n"
                     "replace ${WORK}/a.txt a b\nexpectfile ${WORK}/a.txt\n  b\n  x \xC3\xA9\n  ab\nend\n");
        EXPECT_NE(
            runScript(write + "replace ${WORK}/a.txt c d\n").err.find("6: expected exactly one line \"c\""),
            std::string::npos);
    }
    const std::string twice = "writefile ${WORK}/a.txt\n  a\n  a\nend\nreplace ${WORK}/a.txt a d\n";
    EXPECT_NE(runScript(twice).err.find(", found 2\n"), std::string::npos);
}

TEST(ScriptFiles, PrintsFiles) {
    EXPECT_EQ(runScript("writefile ${WORK}/a.txt utf16\n  a\n  \xC3\xA9\nend\ncat ${WORK}/a.txt\n").out,
              "a\n\xC3\xA9\n");
}

TEST(ScriptFiles, KeepsSettingsAcrossStarts) {
    expectPasses("expectsetting SRCGen \"\"\nsetting SRCGen 73\nstart\nclose frmTest\nstart\nexpectsetting "
                 "SRCGen 73\n");
    for (const char* name : {"RecentProject", "PlugInType", "MessageFormat", "AnsiCodePage"})
        expectPasses("setting " + std::string(name) + " \"a b\"\nexpectsetting " + name + " \"a b\"\n");
    expectFails("expectsetting SRCGen 1\n", "1: expected the setting SRCGen \"1\", found \"\"");
    expectFails("setting Other 1\n",
                "1: expected RecentProject, SRCGen, PlugInType, MessageFormat or AnsiCodePage, found Other");
}

TEST(ScriptFiles, GivesTheGeneratorItsAnswer) {
    expectPasses(
        "generator \"all is well\"\nexpect app Generator \"all is well\"\nexpect app GeneratorRuns 2\n");
}

} // namespace
} // namespace zb
