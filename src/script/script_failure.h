#pragma once

#include <cstddef>
#include <stdexcept>
#include <string>

namespace zb {

/// The reason why a script ends before its last line. It passes through the handlers of the program that it
/// interrupts.
class ScriptFailure : public std::runtime_error {
public:
    explicit ScriptFailure(const std::string& what) : std::runtime_error(what) {}
    ScriptFailure(const std::string& expected, const std::string& found)
        : std::runtime_error("expected " + expected + ", found " + found) {}

    /// The line of the failure, from 1; 0 while unknown.
    std::size_t line() const { return line_; }
    void setLine(std::size_t line) { line_ = line_ == 0 ? line : line_; }

private:
    std::size_t line_ = 0;
};

} // namespace zb
