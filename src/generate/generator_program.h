#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace zb {

class CodePage;
class SettingsStore;

namespace generate {

/// The program ZeltoGenerator, without its name: `PROJECT.zbp`, `--help` or `--version`. The settings
/// `PlugInType` and `SRCGen` choose the language and whether it writes. What it did, or would do, goes to
/// `out`; one line for each. Returns the exit status: 0 done, 1 a fault in the input, 2 wrong usage, 3 a file
/// that cannot be read or written.
int runGeneratorProgram(const std::vector<std::string>& arguments, const SettingsStore& settings,
                        const CodePage& codePage, std::ostream& out);

} // namespace generate
} // namespace zb
