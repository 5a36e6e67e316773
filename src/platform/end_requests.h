#pragma once

namespace zb {

/// The system asks the program to end: a logout, a shut-down, a closed terminal. While an object of this
/// class exists, such a request ends the program only when `obey` is called, so that there is time to keep
/// what the user has made. There is one object at a time.
class EndRequests {
public:
    EndRequests();
    ~EndRequests();
    EndRequests(const EndRequests&) = delete;
    EndRequests& operator=(const EndRequests&) = delete;

    /// Can be read once there is a request; negative when the system has no more descriptors.
    int descriptor() const { return descriptor_; }
    /// Ends the process as the request would have done. Returns when there is none.
    void obey();

private:
    int descriptor_ = -1;
};

} // namespace zb
