#pragma once

#include "platform/result.h"

#include <string>

namespace zb {

/// Notices that another program, one that takes no lock, changes a file between the start of a verb and its
/// write.
class OutputGuard {
public:
    /// The file as it is now; it need not exist.
    explicit OutputGuard(std::string path);
    /// Whether the file still has that content, or is still missing.
    bool isUnchanged() const;

private:
    std::string path_;
    Result<std::string> before_;
};

} // namespace zb
