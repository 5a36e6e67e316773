#pragma once

#include <string>

namespace zb {

class EditorControls;
class SECSLibraryStore;

/// Says over the list of the library from which file it was loaded, how many of its messages could not be
/// read, and where the faults are. The stores are hidden while there is nothing to say.
class LibraryNotice {
public:
    /// Sets the handler of cmdLibraryFindings.
    explicit LibraryNotice(EditorControls& window);

    /// A built-in library is loaded, or none.
    void clear();
    /// A library was loaded from a file with this path.
    void showFile(const std::string& path);
    /// What was found in a file. Nothing is shown when each of its messages was read without a warning.
    void showFindings(const SECSLibraryStore& library);

private:
    void fillFindings(const SECSLibraryStore& library);
    void toggleFindings();

    EditorControls& window_;
};

} // namespace zb
