#include "platform/text_file.h"

#include <array>
#include <cerrno>
#include <cstdint>

#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace zb {

namespace {

// Rounded up, so that a file just over the limit does not seem to be at it.
std::string inMebibytes(std::uintmax_t bytes) {
    constexpr unsigned kShift = 20;
    return std::to_string((bytes + (std::uintmax_t{1} << kShift) - 1) >> kShift) + " MiB";
}

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
    // Without O_NONBLOCK opening a pipe would wait for its writer.
    int descriptor = -1;
    do {
        descriptor = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    } while (descriptor < 0 && errno == EINTR);
    const OpenFile file(descriptor);
    if (file.descriptor() < 0)
        return systemError(errno);
    struct stat status {};
    if (::fstat(file.descriptor(), &status) != 0)
        return systemError(errno);
    if (S_ISDIR(status.st_mode))
        return systemError(EISDIR);
    if (!S_ISREG(status.st_mode))
        return FileError{EINVAL, "Not a regular file"};
    const auto size = static_cast<std::uintmax_t>(status.st_size);
    if (size > kLargestReadable)
        return FileError{EFBIG, "The file has " + inMebibytes(size) + ", and at most " +
                                    inMebibytes(kLargestReadable) + " are read"};
    return readAll(file.descriptor(), static_cast<std::size_t>(size));
}

} // namespace zb
