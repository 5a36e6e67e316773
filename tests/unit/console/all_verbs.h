#pragma once

#include "console/command_line.h"
#include "console/script_verb.h"

namespace zb::test {

/// The verbs of the program zbc.
inline Verbs allVerbs() {
    Verbs verbs = makeVerbs();
    verbs.push_back(makeScriptVerb());
    return verbs;
}

} // namespace zb::test
