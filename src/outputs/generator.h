#pragma once

#include <string>

namespace zb {

/// The external generator of driver plug-ins. It reads the project file and its settings by itself.
class Generator {
public:
    virtual ~Generator() = default;
    /// The text to be shown to the user.
    virtual std::string generate(const std::string& projectFile) = 0;
};

} // namespace zb
