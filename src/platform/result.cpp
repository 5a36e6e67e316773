#include "platform/result.h"

#include <system_error>

namespace zb {

std::string describeSystemError(int number) {
    return std::generic_category().message(number);
}

FileError systemError(int number) {
    return {number, describeSystemError(number)};
}

} // namespace zb
