#pragma once

#include "console/command_line.h"
#include "platform/text_file.h"
#include "support/temporary_folder.h"

#include <cstdlib>
#include <fstream>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace zb {

struct Outcome {
    int status = 0;
    std::string out;
    std::string err;
};

inline Outcome runVerbs(const Verbs& verbs, const std::vector<std::string>& arguments) {
    std::ostringstream out;
    std::ostringstream err;
    const int status = runConsole(verbs, arguments, {out, err});
    return {status, out.str(), err.str()};
}

/// A folder with a project of two messages, and separate settings.
class Cli : public testing::Test {
protected:
    Cli() {
        setenv("ZELTOBENCH_CONFIG", (folder_.path() / "config").c_str(), 1);
        project_ =
            write("Demo.zbp", encodeUtf16("\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n"
                                          "* Are you there\r\nAreYouThere: S1 F1 W H<->E.\r\n"
                                          "* On line\r\nOnLineData: S1 F2 H<-E\r\n    L 2\r\n"
                                          "        A 6 MDLN 'ETCHER'\r\n        A 6 SOFTREV 'V01R01'.\r\n"));
    }
    ~Cli() override { unsetenv("ZELTOBENCH_CONFIG"); }

    std::string path(const std::string& name) const { return (folder_.path() / name).string(); }

    std::string write(const std::string& name, const std::string& bytes) const {
        std::ofstream(path(name), std::ios::binary) << bytes;
        return path(name);
    }

    std::string faulty() const {
        return write("Bad.zbp", encodeUtf16("## [EDIT SMD]\r\n* d\r\nBad: S200 F1 H->E\r\n    U1 1 A 300.\r\n"
                                            "* d\r\nWorse: S1 F1 H->E\r\n    L 1\r\n        XX 1 B 0.\r\n"));
    }

    test::TemporaryFolder folder_;
    std::string project_;
};

} // namespace zb
