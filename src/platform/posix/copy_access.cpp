#include "platform/file_layer.h"

#include <cerrno>
#include <memory>
#include <string_view>
#include <type_traits>

#include <acl/libacl.h>
#include <attr/libattr.h>
#include <sys/acl.h>

namespace zb {

namespace {

bool isUnknownToFileSystem(int number) {
    return number == ENOTSUP || number == ENOSYS;
}

// Whether a file has more rights than its mode shows.
Result<bool> hasList(const std::filesystem::path& path) {
    const int extended = ::acl_extended_file(path.c_str());
    if (extended < 0 && !isUnknownToFileSystem(errno))
        return systemError(errno);
    return extended > 0;
}

Result<void> copyList(const std::filesystem::path& from, const std::filesystem::path& to) {
    const Result<bool> wanted = hasList(from);
    // A folder may have given the new file a list that the old one does not have.
    const Result<bool> present = hasList(to);
    if (!wanted || !present)
        return wanted ? present.error() : wanted.error();
    if (!*wanted && !*present)
        return {};
    const std::unique_ptr<std::remove_pointer_t<acl_t>, int (*)(void*)> list(
        ::acl_get_file(from.c_str(), ACL_TYPE_ACCESS), ::acl_free);
    if (list == nullptr || ::acl_set_file(to.c_str(), ACL_TYPE_ACCESS, list.get()) != 0)
        return systemError(errno);
    return {};
}

// The others are the system's own, and not ours to copy.
int isOfUser(const char* name, error_context* /*context*/) {
    return std::string_view(name).starts_with("user.") ? 1 : 0;
}

} // namespace

Result<void> SystemFileLayer::copyAccess(const std::filesystem::path& from, const std::filesystem::path& to) {
    if (Result<void> copied = copyList(from, to); !copied)
        return copied;
    if (::attr_copy_file(from.c_str(), to.c_str(), isOfUser, nullptr) != 0)
        return systemError(errno);
    return {};
}

} // namespace zb
