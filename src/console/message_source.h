#pragma once

#include "console/verb.h"
#include "messages/library_store.h"

#include <memory>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

namespace zb {

/// What a name on the command line stands for.
enum class SourceKind { Project, Gem, Semi, Smd, Mdf, Sml, Unknown };

/// "gem" and "semi" are the built-in libraries; files are told by the ending of their names, in any case. A
/// file of an unknown ending is read as a project.
SourceKind sourceKind(std::string_view name);
/// The endings that `sourceKind` knows, for help and faults.
inline constexpr const char* kSourceEndings = ".zbp, .smd, .mdf or .sml";

/// The messages of a project or of a library.
class MessageSource {
public:
    /// What is wrong with the file is told as one line each. Gives the exit status: with a fault in some of
    /// its messages the others are here, and the status is kExitFault.
    int load(const std::string& name, ConsoleStreams streams);

    const SECSLibraryStore::Records& messages() const { return messages_; }
    /// By name or as "S1F13", case apart; empty when there is none.
    SECSLibraryStore::Records select(std::string_view wanted) const;
    /// Of a stream and function, "S1 F13".
    SECSLibraryStore::Records byStreamFunction(std::string_view text) const;

private:
    using ByName = std::unordered_map<std::string, SECSLibraryStore::Records>;

    const ByName& byName() const;
    const ByName& byNumbers() const;
    int loadLibrary(const std::string& name, SourceKind kind, ConsoleStreams streams);
    int loadProject(const std::string& name, ConsoleStreams streams);

    std::unique_ptr<SECSLibraryStore> library_;
    std::vector<SECSMessageRecord> ofProject_;
    SECSLibraryStore::Records messages_;
    // Made when they are asked for: names upper-cased, and both forms of the numbers.
    mutable ByName byName_;
    mutable ByName byNumbers_;
};

/// Tells each item that a project file takes for the head of a message, since it holds a colon. True when
/// there is none.
bool tellColons(const SECSLibraryStore::Records& records, const std::string& file, std::ostream& err);

} // namespace zb
