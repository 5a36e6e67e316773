#pragma once

#include "unit/console/all_verbs.h"
#include "unit/console/verb_runs.h"

namespace zb {

inline Outcome runZbc(const std::vector<std::string>& arguments) {
    return runVerbs(test::allVerbs(), arguments);
}

inline void expectFault(const std::vector<std::string>& arguments, int status, const std::string& err) {
    const Outcome run = runZbc(arguments);
    EXPECT_EQ(run.status, status);
    EXPECT_EQ(run.out, "");
    EXPECT_EQ(run.err, err);
}

} // namespace zb
