#pragma once

#include "fake_program.h"
#include "script/script_runner.h"

#include <gtest/gtest.h>
#include <sstream>
#include <string>

namespace zb {

/// The effects of a script on the fake program.
struct ScriptOutcome {
    bool passed = false;
    std::string out;
    std::string err;
};

inline ScriptOutcome runScript(const std::string& text) {
    std::ostringstream out;
    std::ostringstream err;
    const auto make = [](Screen& screen, const std::string& folder) {
        return std::make_unique<FakeProgram>(screen, folder);
    };
    ScriptRunner runner(make, out, err);
    const auto outcome = runner.runText("test.zbs", "/scripts", text);
    return {outcome == ScriptRunner::Outcome::Passed, out.str(), err.str()};
}

/// A case of a table: a script that must pass.
inline void expectPasses(const std::string& text) {
    const ScriptOutcome outcome = runScript(text);
    EXPECT_TRUE(outcome.passed) << text << "\n" << outcome.err;
}

/// A script that must fail with this message.
inline void expectFails(const std::string& text, const std::string& message) {
    const ScriptOutcome outcome = runScript(text);
    EXPECT_FALSE(outcome.passed) << text;
    EXPECT_EQ(outcome.err, "test.zbs:" + message + "\n") << text;
}

} // namespace zb
