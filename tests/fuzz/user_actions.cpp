#include "demand.h"

#include "fuzz/any_user.h"

/// Whatever a user does in whatever order, no window breaks.
extern "C" int LLVMFuzzerTestOneInput(const unsigned char* data, std::size_t size) {
    zb::fuzz::AnyUser user({data, size});
    user.act();
    zb::fuzz::demand(user.fault().empty(), user.fault());
    return 0;
}
