#pragma once

#include "platform/finding.h"

#include <functional>
#include <string>

namespace zb {

class EditorControls;
class SECSLibraryStore;

/// Says over the list of the library from which file it was loaded and how many of its messages could not be
/// read. The stores are hidden while there is nothing to say. Where the faults are is shown elsewhere.
class LibraryNotice {
public:
    /// Sets the handler of cmdLibraryFindings.
    explicit LibraryNotice(EditorControls& window);

    /// A built-in library is loaded, or none.
    void clear();
    /// A library was loaded from a file with this path.
    void showFile(const std::string& path);
    /// What was found in a file. Nothing is shown when each of its messages was read without a warning.
    void showFindings(const std::string& path, const SECSLibraryStore& library);

    /// What was found in the file that was read last; none of a built-in library. Places have the name of the
    /// file as their message.
    std::function<void(const Findings& findings)> onFindings;
    /// The user wants to see them.
    std::function<void()> onShow;

private:
    EditorControls& window_;
};

} // namespace zb
