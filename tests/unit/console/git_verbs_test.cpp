#include "platform/child_process.h"
#include "unit/console/verb_runs.h"

#include <gtest/gtest.h>
#include <nlohmann/json.hpp>

#include <filesystem>

namespace zb {
namespace {

namespace fs = std::filesystem;

Outcome runZbc(const std::vector<std::string>& arguments) {
    return runVerbs(makeVerbs(), arguments);
}

const std::string kStart = "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n";
const std::string kEnd = "\r\n\r\n\r\n###[SEQUENCE TABLE]\r\n";
const std::string kHello = "* Are you there\r\nAreYouThere: S1 F1 W H<->E.\r\n";
const std::string kOurs = "* Ours\r\nOurs: S2 F1 H->E.\r\n";
const std::string kTheirs = "* Theirs\r\nTheirs: S2 F3 H->E.\r\n";

/// A git repository with a project, as the working folder, and nothing of the user's git.
class GitVerbs : public testing::Test {
protected:
    GitVerbs() : before_(fs::current_path()), oldPath_(std::getenv("PATH")) {
        fs::create_directories(folder_ / "bin");
        fs::create_directories(folder_ / "home");
        fs::create_directories(folder_ / "repository");
        fs::create_symlink(ZBC_PROGRAM, folder_ / "bin/zbc");
        set("PATH", (folder_ / "bin").string() + ":" + oldPath_);
        set("HOME", (folder_ / "home").string());
        set("ZELTOBENCH_CONFIG", (folder_ / "config").string());
        set("ZELTOBENCH_STATE", (folder_ / "state").string());
        set("GIT_CONFIG_NOSYSTEM", "1");
        for (const char* who : {"AUTHOR", "COMMITTER"}) {
            set(std::string("GIT_") + who + "_NAME", "Tester");
            set(std::string("GIT_") + who + "_EMAIL", "tester@example.com");
        }
        unsetenv("XDG_CONFIG_HOME");
        fs::current_path(folder_ / "repository");
        git({"init", "--quiet", "--initial-branch=main"});
        writeProject(kHello);
        git({"add", "Etcher.zbp"});
        git({"commit", "--quiet", "-m", "Begin"});
    }
    ~GitVerbs() override {
        fs::current_path(before_);
        setenv("PATH", oldPath_.c_str(), 1);
        for (const std::string& name : names_) {
            if (name != "PATH")
                unsetenv(name.c_str());
        }
    }

    void set(const std::string& name, const std::string& value) {
        setenv(name.c_str(), value.c_str(), 1);
        names_.push_back(name);
    }

    /// Its output; the status is expected.
    static std::string git(std::vector<std::string> arguments, int status = 0) {
        arguments.insert(arguments.begin(), "git");
        const ProcessLimits limits{std::chrono::seconds(60), std::chrono::seconds(1), 1U << 20U};
        const ProcessOutcome outcome = runProcess(arguments, limits, {});
        EXPECT_EQ(outcome.end, ProcessOutcome::End::Exited);
        EXPECT_EQ(outcome.number, status) << arguments[1] << ": " << outcome.output;
        return outcome.output;
    }

    static void writeProject(const std::string& messages) {
        test::writeFile("Etcher.zbp", encodeUtf16(kStart + messages + kEnd));
    }
    static std::string textOfProject() { return decodeProject(test::readFile("Etcher.zbp")).text; }

    /// A commit on each of two branches; the working folder is on the first.
    static void branch(const std::string& ours, const std::string& theirs) {
        git({"checkout", "--quiet", "-b", "theirs"});
        writeProject(theirs);
        git({"commit", "--quiet", "-am", "Theirs"});
        git({"checkout", "--quiet", "main"});
        writeProject(ours);
        git({"commit", "--quiet", "-am", "Ours"});
    }

    test::TemporaryFolder folder_;
    fs::path before_;
    std::string oldPath_;
    std::vector<std::string> names_;
};

TEST_F(GitVerbs, SetupSaysWhatItWrites) {
    const Outcome run = runZbc({"git-setup"});
    EXPECT_EQ(run.status, 0) << run.err;
    EXPECT_EQ(run.out,
              fs::canonical(".").string() + "/.gitattributes: *.zbp diff=zeltobench merge=zeltobench\n" +
                  "git config --local: diff.zeltobench.textconv = zbc diff --textconv --\n"
                  "git config --local: diff.zeltobench.cachetextconv = false\n"
                  "git config --local: merge.zeltobench.name = Zeltobench projects\n"
                  "git config --local: merge.zeltobench.driver = zbc merge %O %A %B -o %A --path %P\n"
                  "git config --local: mergetool.zeltobench.cmd = zeltobench --merge \"$BASE\" \"$LOCAL\" "
                  "\"$REMOTE\" \"$MERGED\"\n"
                  "git config --local: mergetool.zeltobench.trustExitCode = true\n");
    EXPECT_EQ(git({"check-attr", "merge", "Etcher.zbp"}), "Etcher.zbp: merge: zeltobench\n");
}

TEST_F(GitVerbs, SetupKeepsOtherLinesAndWritesItsOwnOnce) {
    test::writeFile(".gitattributes", "*.png binary");
    ASSERT_EQ(runZbc({"git-setup"}).status, 0);
    ASSERT_EQ(runZbc({"git-setup"}).status, 0);
    EXPECT_EQ(test::readFile(".gitattributes"), "*.png binary\n*.zbp diff=zeltobench merge=zeltobench\n");
    EXPECT_EQ(git({"config", "--get-all", "merge.zeltobench.name"}), "Zeltobench projects\n");
}

TEST_F(GitVerbs, SetupCanBeForAllRepositories) {
    ASSERT_EQ(runZbc({"git-setup", "--global"}).status, 0);
    EXPECT_FALSE(fs::exists(".gitattributes"));
    EXPECT_EQ(test::readFile(folder_ / "home/.config/git/attributes"),
              "*.zbp diff=zeltobench merge=zeltobench\n");
    EXPECT_EQ(git({"config", "--global", "diff.zeltobench.textconv"}), "zbc diff --textconv --\n");
    EXPECT_EQ(git({"check-attr", "diff", "Etcher.zbp"}), "Etcher.zbp: diff: zeltobench\n");
}

TEST_F(GitVerbs, SetupOutsideARepositoryIsAFault) {
    fs::current_path(folder_ / "home");
    const Outcome run = runZbc({"git-setup"});
    EXPECT_EQ(run.status, 3);
    EXPECT_EQ(run.err.find("git: fatal: not a git repository"), 0U) << run.err;
}

TEST_F(GitVerbs, BranchesThatAddMessagesMergeClean) {
    ASSERT_EQ(runZbc({"git-setup"}).status, 0);
    branch(kHello + kOurs, kHello + kTheirs);
    git({"merge", "--quiet", "--no-edit", "theirs"});
    EXPECT_EQ(textOfProject(), kStart + kHello + kOurs + kTheirs + kEnd);
    EXPECT_EQ(git({"status", "--porcelain", "--untracked-files=all"}), "?? .gitattributes\n");
    const Outcome check = runZbc({"check", "Etcher.zbp"});
    EXPECT_EQ(check.status, 0) << check.err;
    EXPECT_FALSE(fs::exists(folder_ / "state/history"));
}

TEST_F(GitVerbs, BranchesThatChangeTheSameEndInAConflict) {
    ASSERT_EQ(runZbc({"git-setup"}).status, 0);
    branch("* We\r\nAreYouThere: S1 F1 W H<->E.\r\n" + kOurs,
           "* They\r\nAreYouThere: S1 F1 W H<->E.\r\n" + kTheirs);
    git({"merge", "--quiet", "--no-edit", "theirs"}, 1);
    EXPECT_EQ(git({"diff", "--name-only", "--diff-filter=U"}), "Etcher.zbp\n");
    EXPECT_EQ(textOfProject(), kStart + "* We\r\nAreYouThere: S1 F1 W H<->E.\r\n" + kOurs + kTheirs + kEnd);
    const auto conflicts = nlohmann::json::parse(test::readFile("Etcher.zbp.conflicts"));
    ASSERT_EQ(conflicts.size(), 1U);
    EXPECT_EQ(conflicts[0]["name"], "AreYouThere");
    EXPECT_EQ(conflicts[0]["field"], "description");
    EXPECT_EQ(conflicts[0]["ours"], "We");
    EXPECT_EQ(conflicts[0]["theirs"], "They");
}

TEST_F(GitVerbs, BranchesThatAddTheSameProjectAreMerged) {
    ASSERT_EQ(runZbc({"git-setup"}).status, 0);
    git({"checkout", "--quiet", "-b", "theirs"});
    test::writeFile("New.zbp", encodeUtf16(kStart + kHello + kTheirs + kEnd));
    git({"add", "New.zbp"});
    git({"commit", "--quiet", "-m", "Theirs"});
    git({"checkout", "--quiet", "main"});
    test::writeFile("New.zbp", encodeUtf16(kStart + kHello + kOurs + kEnd));
    git({"add", "New.zbp"});
    git({"commit", "--quiet", "-m", "Ours"});
    git({"merge", "--quiet", "--no-edit", "theirs"});
    EXPECT_EQ(decodeProject(test::readFile("New.zbp")).text, kStart + kHello + kOurs + kTheirs + kEnd);
}

TEST_F(GitVerbs, GitShowsProjectsAsText) {
    ASSERT_EQ(runZbc({"git-setup"}).status, 0);
    writeProject(kHello + kOurs);
    const std::string shown = git({"diff", "--no-color"});
    EXPECT_NE(shown.find("+* Ours\n+Ours: S2 F1 H->E.\n"), std::string::npos) << shown;
}

TEST_F(GitVerbs, DiffAndCompatReadRevisions) {
    writeProject(kHello + kOurs);
    const Outcome diff = runZbc({"diff", "HEAD:Etcher.zbp", "Etcher.zbp"});
    EXPECT_EQ(diff.status, 1);
    EXPECT_EQ(diff.out, "+ * Ours\n+ Ours: S2 F1 H->E.\n");
    EXPECT_EQ(runZbc({"diff", "HEAD:Etcher.zbp", "main:Etcher.zbp"}).status, 0);
    EXPECT_EQ(runZbc({"compat", "HEAD:Etcher.zbp", "Etcher.zbp"}).status, 0);
    EXPECT_EQ(runZbc({"compat", "Etcher.zbp", "HEAD:Etcher.zbp"}).status, 1);
}

TEST_F(GitVerbs, AFileGoesBeforeARevisionOfItsName) {
    test::writeFile("HEAD:Etcher.zbp", encodeUtf16(kStart + kHello + kOurs + kEnd));
    writeProject(kHello + kOurs);
    EXPECT_EQ(runZbc({"diff", "HEAD:Etcher.zbp", "Etcher.zbp"}).status, 0);
}

TEST_F(GitVerbs, WhatGitDoesNotKnowCannotBeRead) {
    const Outcome unknown = runZbc({"diff", "HEAD:None.zbp", "Etcher.zbp"});
    EXPECT_EQ(unknown.status, 3);
    EXPECT_EQ(unknown.err.find("HEAD:None.zbp: cannot be read: fatal: "), 0U) << unknown.err;
    EXPECT_EQ(runZbc({"diff", "None:Etcher.zbp", "Etcher.zbp"}).status, 3);
}

TEST_F(GitVerbs, LibrariesAreReadFromARevisionToo) {
    test::writeFile("Etcher.smd", kHello);
    test::writeFile("Broken.sml", "<<<<");
    git({"add", "Etcher.smd", "Broken.sml"});
    git({"commit", "--quiet", "-m", "Libraries"});
    test::writeFile("Etcher.smd", kHello + kOurs);
    EXPECT_EQ(runZbc({"diff", "HEAD:Etcher.smd", "Etcher.zbp"}).status, 0);
    const Outcome diff = runZbc({"diff", "HEAD:Etcher.smd", "Etcher.smd"});
    EXPECT_EQ(diff.status, 1);
    EXPECT_EQ(diff.out, "+ * Ours\n+ Ours: S2 F1 H->E.\n");
    const Outcome broken = runZbc({"diff", "HEAD:Broken.sml", "Etcher.zbp"});
    EXPECT_EQ(broken.status, 3);
    EXPECT_NE(broken.err.find("HEAD:Broken.sml: not a message library"), std::string::npos) << broken.err;
}

TEST_F(GitVerbs, ANameThatBeginsWithADashIsNoOptionOfGit) {
    const std::string file = (folder_ / "written").string();
    const Outcome run = runZbc({"diff", "Etcher.zbp", "--", "--output=" + file + ":Etcher.zbp"});
    EXPECT_EQ(run.status, 3) << run.out;
    EXPECT_FALSE(fs::exists(file));
    EXPECT_FALSE(fs::exists(file + ":Etcher.zbp"));
}

TEST_F(GitVerbs, SetupDoesNotFollowALinkOfTheRepository) {
    test::writeFile(folder_ / "home/notes", "mine\n");
    fs::create_symlink(folder_ / "home/notes", ".gitattributes");
    const Outcome run = runZbc({"git-setup"});
    EXPECT_EQ(run.status, 3);
    EXPECT_NE(run.err.find("it is a link, which git does not follow"), std::string::npos) << run.err;
    EXPECT_EQ(test::readFile(folder_ / "home/notes"), "mine\n");
}

TEST_F(GitVerbs, AProjectMayBeNamedLikeAnOption) {
    ASSERT_EQ(runZbc({"git-setup"}).status, 0);
    test::writeFile("-o.zbp", encodeUtf16(kStart + kHello + kEnd));
    git({"add", "--", "-o.zbp"});
    git({"commit", "--quiet", "-m", "More"});
    test::writeFile("-o.zbp", encodeUtf16(kStart + kHello + kOurs + kEnd));
    const std::string shown = git({"diff", "--no-color"});
    EXPECT_NE(shown.find("+* Ours\n"), std::string::npos) << shown;
}

TEST_F(GitVerbs, ConflictsReplaceALinkOfTheRepositoryAndNotItsTarget) {
    ASSERT_EQ(runZbc({"git-setup"}).status, 0);
    test::writeFile(folder_ / "home/notes", "mine\n");
    fs::create_symlink(folder_ / "home/notes", "Etcher.zbp.conflicts");
    branch("* We\r\nAreYouThere: S1 F1 W H<->E.\r\n", "* They\r\nAreYouThere: S1 F1 W H<->E.\r\n");
    git({"merge", "--quiet", "--no-edit", "theirs"}, 1);
    EXPECT_EQ(test::readFile(folder_ / "home/notes"), "mine\n");
    EXPECT_FALSE(fs::is_symlink("Etcher.zbp.conflicts"));
    EXPECT_EQ(nlohmann::json::parse(test::readFile("Etcher.zbp.conflicts")).size(), 1U);
}

} // namespace
} // namespace zb
