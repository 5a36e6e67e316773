#include "console/output_guard.h"

#include "platform/text_file.h"

#include <utility>

namespace zb {

OutputGuard::OutputGuard(std::string path) : path_(std::move(path)), before_(readBytes(path_)) {}

bool OutputGuard::isUnchanged() const {
    const Result<std::string> now = readBytes(path_);
    if (now && before_)
        return *now == *before_;
    return !now && !before_ && now.error() == before_.error();
}

} // namespace zb
