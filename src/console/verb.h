#pragma once

#include <iosfwd>
#include <string>

namespace CLI {
class App;
}

namespace zb {

/// Where a verb writes: its result on `out`, talk and faults on `err`.
struct ConsoleStreams {
    std::ostream& out;
    std::ostream& err;
};

/// How a run ends, for shells and CI.
/// @{
inline constexpr int kExitDone = 0;
inline constexpr int kExitFault = 1;     ///< a fault in the input, told on standard error
inline constexpr int kExitUsage = 2;     ///< options that cannot be meant
inline constexpr int kExitFileFault = 3; ///< a file that cannot be read or written
/// @}

/// One verb of the console. It is declared once and run at most once.
class Verb {
public:
    virtual ~Verb() = default;
    virtual std::string name() const = 0;
    virtual std::string summary() const = 0;
    /// A command line that shows what the verb is good for, and what comes of it.
    virtual std::string example() const = 0;
    /// Adds the verb's options, which write into the verb.
    virtual void declare(CLI::App& app) = 0;
    /// Gives the exit status.
    virtual int run(ConsoleStreams streams) = 0;
};

} // namespace zb
