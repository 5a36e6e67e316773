#pragma once

#include "platform/result.h"
#include "rehearsal/line_source.h"

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

namespace zb {

/// An earlier result of a rehearsal, one JSON object a line, compared with a new one line by line.
class ExpectedResult {
public:
    static Result<ExpectedResult> open(const std::string& path);

    /// The differences of the next object from the expected one, a sentence each; empty when they are equal.
    std::vector<std::string> compare(const std::string& json);
    /// What is expected after the last object; empty when nothing is.
    std::vector<std::string> finish();

private:
    explicit ExpectedResult(rehearsal::LineSource lines) : lines_(std::move(lines)) {}
    std::optional<std::string> nextLine();

    rehearsal::LineSource lines_;
    std::size_t number_ = 0;
};

} // namespace zb
