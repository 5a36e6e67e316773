#pragma once

#include "console/verb.h"
#include "messages/library_store.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zb {

/// The meaning of a name on the command line.
enum class SourceKind { Project, Gem, Semi, Smd, Mdf, Sml, Unknown };

/// "gem" and "semi" are the built-in libraries. Files are recognised by their endings, in any case. A file
/// with an unknown ending is read as a project.
SourceKind sourceKind(std::string_view name);
/// The endings that `sourceKind` knows, for help texts and error messages.
inline constexpr const char* kSourceEndings = ".zbp, .smd, .mdf or .sml";

/// The messages of a project or of a library.
class MessageSource {
public:
    /// Reports what is wrong with the file, one line each. Returns the exit status: kExitFault when some of
    /// its messages are faulty; the others are then available.
    int load(const std::string& name, ConsoleStreams streams);
    /// The same for the bytes of a library file, whose kind follows from the ending of its name.
    int loadBytes(const std::string& name, std::string bytes, ConsoleStreams streams);

    const SECSLibraryStore::Records& messages() const { return messages_; }
    /// By name or as "S1F13", compared without case; empty when there is none.
    SECSLibraryStore::Records select(std::string_view wanted) const;
    /// Of a stream and function, "S1 F13".
    SECSLibraryStore::Records byStreamFunction(std::string_view text) const;

private:
    using ByName = std::unordered_map<std::string, SECSLibraryStore::Records>;

    const ByName& byName() const;
    const ByName& byNumbers() const;
    int loadLibrary(const std::string& name, SourceKind kind, ConsoleStreams streams);
    int takeLibrary(const std::string& name, const std::string& status, ConsoleStreams streams);
    int loadProject(const std::string& name, ConsoleStreams streams);

    std::unique_ptr<SECSLibraryStore> library_;
    std::vector<SECSMessageRecord> ofProject_;
    SECSLibraryStore::Records messages_;
    /// Made when they are asked for: names upper-cased, and both forms of the numbers.
    mutable ByName byName_;
    mutable ByName byNumbers_;
};

/// Reports each item that a project file takes for the head of a message, since it contains a colon. True
/// when there is none.
bool reportColons(const SECSLibraryStore::Records& records, const std::string& file, std::ostream& err);

} // namespace zb
