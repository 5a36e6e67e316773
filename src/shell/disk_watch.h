#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <string>
#include <string_view>

namespace zb {

/// Whether the project file is still as this program left it. A file is the same when size and time are, or
/// when size and content are.
class DiskWatch {
public:
    enum class State { Same, Changed, Gone };

    /// The file at this path is as it should be now; a missing one may stay missing.
    void take(const std::string& path);
    /// This program has just written these bytes to it.
    void takeWritten(const std::string& path, std::string_view bytes);

    /// A look that reads the file only when its size or time is another one.
    State look() const { return look(Thoroughly::No); }
    /// A look that reads the file.
    State lookInside() const { return look(Thoroughly::Yes); }

private:
    enum class Thoroughly { No, Yes };
    struct Stamp {
        bool exists = false;
        std::uintmax_t size = 0;
        std::filesystem::file_time_type time;
        std::size_t hash = 0;
    };

    State look(Thoroughly thoroughly) const;
    static Stamp statusOf(const std::string& path);

    std::string path_;
    Stamp stamp_;
};

} // namespace zb
