#pragma once

#include <unistd.h>

#include <filesystem>
#include <stdexcept>

namespace zb::test {

// Permissions bind no administrator. While this lives, one who runs the tests has the rights of nobody,
// to whom all that lies in the folder belongs; anyone else stays who they are.
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
