#pragma once

#include <unistd.h>

#include <filesystem>
#include <stdexcept>

namespace zb::test {

// Permissions do not restrict an administrator. During the lifetime of this object an administrator has the
// rights of nobody, who owns everything in the folder; other users stay themselves.
class OrdinaryUser {
public:
    explicit OrdinaryUser(const std::filesystem::path& folder) : lowered_(::geteuid() == 0) {
        if (!lowered_)
            return;
        giveAway(folder);
        for (const auto& entry : std::filesystem::recursive_directory_iterator(folder))
            giveAway(entry.path());
        if (::seteuid(kNobody) != 0)
            throw std::runtime_error("cannot give up an administrator's rights");
    }
    ~OrdinaryUser() {
        if (lowered_ && ::seteuid(0) != 0)
            std::terminate();
    }
    OrdinaryUser(const OrdinaryUser&) = delete;
    OrdinaryUser& operator=(const OrdinaryUser&) = delete;

private:
    static constexpr uid_t kNobody = 65534;

    static void giveAway(const std::filesystem::path& path) {
        if (::lchown(path.c_str(), kNobody, static_cast<gid_t>(-1)) != 0)
            throw std::runtime_error("cannot give away " + path.string());
    }

    bool lowered_;
};

} // namespace zb::test
