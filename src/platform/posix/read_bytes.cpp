#include "platform/text_file.h"

#include <array>
#include <cerrno>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zb {

namespace {

class OpenFile {
public:
    explicit OpenFile(int descriptor) : descriptor_(descriptor) {}
    ~OpenFile() {
        if (descriptor_ >= 0)
            ::close(descriptor_);
    }
    OpenFile(const OpenFile&) = delete;
    OpenFile& operator=(const OpenFile&) = delete;
    int descriptor() const { return descriptor_; }

private:
    int descriptor_;
};

Result<std::string> readAll(int descriptor, std::size_t expected) {
    std::string bytes;
    bytes.reserve(expected);
    std::array<char, 65536> buffer{};
    while (true) {
        const ssize_t count = ::read(descriptor, buffer.data(), buffer.size());
        if (count == 0)
            return bytes;
        if (count > 0)
            bytes.append(buffer.data(), static_cast<std::size_t>(count));
        else if (errno != EINTR)
            return systemError(errno);
    }
}

} // namespace

Result<std::string> readBytes(const std::filesystem::path& path) {
    // Without O_NONBLOCK the opening of a pipe would wait for its writer.
    const OpenFile file(::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.descriptor() < 0)
        return systemError(errno);
    struct stat status {};
    if (::fstat(file.descriptor(), &status) != 0)
        return systemError(errno);
    if (S_ISDIR(status.st_mode))
        return systemError(EISDIR);
    if (!S_ISREG(status.st_mode))
        return FileError{EINVAL, "Not a regular file"};
    return readAll(file.descriptor(), static_cast<std::size_t>(status.st_size));
}

} // namespace zb
