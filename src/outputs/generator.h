#pragma once

#include <string>

namespace zb {

/// The external generator of driver plug-ins. It reads the project file and its settings itself.
class Generator {
public:
    virtual ~Generator() = default;
    /// Returns the text to show to the user.
    virtual std::string generate(const std::string& projectFile) = 0;
};

} // namespace zb
