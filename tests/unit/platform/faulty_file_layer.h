#pragma once

#include <optional>
#include <string>
#include <utility>

#include "platform/file_layer.h"

namespace zb::test {

// The real system, except that the call of one name fails.
class FaultyFileLayer : public SystemFileLayer {
public:
    FaultyFileLayer(std::string call, int errorNumber) : call_(std::move(call)), errorNumber_(errorNumber) {}

    int faults() const { return faults_; }

    Result<int> create(const std::filesystem::path& path, unsigned mode) override {
        return fails("create") ? error() : SystemFileLayer::create(path, mode);
    }
    Result<std::size_t> write(int descriptor, std::string_view bytes) override {
        if (fails("write"))
            return error();
        // Half of the requested bytes, as on a disk that is filling up.
        if (call_ == "laterWrite" && bytes.size() > 1)
            return SystemFileLayer::write(descriptor, bytes.substr(0, bytes.size() / 2));
        if (call_ == "laterWrite" && ++faults_ > 0)
            return error();
        if (fails("nothingWritten"))
            return std::size_t{0};
        return SystemFileLayer::write(descriptor, bytes);
    }
    Result<int> openToWrite(const std::filesystem::path& path) override {
        return fails("openToWrite") ? error() : SystemFileLayer::openToWrite(path);
    }
    Result<void> truncate(int descriptor, std::size_t length) override {
        return fails("truncate") ? error() : SystemFileLayer::truncate(descriptor, length);
    }
    Result<void> copyAccess(const std::filesystem::path& from, const std::filesystem::path& to) override {
        return fails("copyAccess") ? error() : SystemFileLayer::copyAccess(from, to);
    }
    Result<FileStatus> statusOf(int descriptor) override {
        return fails("statusOf") ? error() : SystemFileLayer::statusOf(descriptor);
    }
    Result<void> setMode(int descriptor, unsigned mode) override {
        return fails("setMode") ? error() : SystemFileLayer::setMode(descriptor, mode);
    }
    Result<void> setOwner(int descriptor, unsigned owner, unsigned group) override {
        return fails("setOwner") ? error() : SystemFileLayer::setOwner(descriptor, owner, group);
    }
    Result<void> sync(int descriptor) override {
        return fails("sync") ? error() : SystemFileLayer::sync(descriptor);
    }
    Result<void> close(int descriptor) override {
        const Result<void> closed = SystemFileLayer::close(descriptor);
        return fails("close") ? error() : closed;
    }
    Result<void> rename(const std::filesystem::path& from, const std::filesystem::path& to) override {
        return fails("rename") ? error() : SystemFileLayer::rename(from, to);
    }
    Result<FileStatus> status(const std::filesystem::path& path) override {
        return fails("status") ? error() : SystemFileLayer::status(path);
    }
    Result<std::filesystem::path> readLink(const std::filesystem::path& path) override {
        return fails("readLink") ? error() : SystemFileLayer::readLink(path);
    }
    Result<void> checkWritable(const std::filesystem::path& path) override {
        return fails("checkWritable") ? error() : SystemFileLayer::checkWritable(path);
    }
    Result<void> syncFolder(const std::filesystem::path& path) override {
        return fails("syncFolder") ? error() : SystemFileLayer::syncFolder(path);
    }
    Result<std::vector<std::string>> names(const std::filesystem::path& folder) override {
        return fails("names") ? error() : SystemFileLayer::names(folder);
    }

private:
    bool fails(std::string_view call) {
        if (call != call_)
            return false;
        ++faults_;
        return true;
    }
    FileError error() const { return systemError(errorNumber_); }

    std::string call_;
    int errorNumber_;
    int faults_ = 0;
};

} // namespace zb::test
