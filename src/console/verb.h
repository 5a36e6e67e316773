#pragma once

#include <iosfwd>
#include <string>

namespace CLI {
class App;
}

namespace zb {

/// Where a verb writes: the result to `out`, faults and notices to `err`.
struct ConsoleStreams {
    std::ostream& out;
    std::ostream& err;
    /// Whether `out` is a terminal whose user wants colours.
    bool colours = false;
};

/// The exit status of a run, for shells and CI.
/// @{
inline constexpr int kExitDone = 0;
inline constexpr int kExitFault = 1;     ///< a fault in the input, reported on standard error
inline constexpr int kExitUsage = 2;     ///< wrong options
inline constexpr int kExitFileFault = 3; ///< a file that cannot be read or written
/// @}

/// One verb of the console. It is declared once and run at most once.
class Verb {
public:
    virtual ~Verb() = default;
    virtual std::string name() const = 0;
    virtual std::string summary() const = 0;
    /// An example command line, and its result.
    virtual std::string example() const = 0;
    /// Adds the verb's options, which are stored in the verb.
    virtual void declare(CLI::App& app) = 0;
    /// Returns the exit status.
    virtual int run(ConsoleStreams streams) = 0;
};

} // namespace zb
