#include "console/message_source.h"

#include "console/printable.h"
#include "console/project_loading.h"
#include "messages/libraries/built_in.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "platform/wildcard.h"

#include <filesystem>
#include <ostream>

namespace zb {

namespace {

int formatOf(SourceKind kind) {
    switch (kind) {
    case SourceKind::Gem:
        return kFormatGem;
    case SourceKind::Semi:
        return kFormatSemi;
    case SourceKind::Mdf:
        return kFormatMdf;
    case SourceKind::Sml:
        return kFormatSml;
    default:
        return kFormatSmd;
    }
}

/// `FILE:LINE:COLUMN: text`; the severity of a finding that is not an error precedes its text.
void printFinding(std::ostream& out, const std::string& file, const Finding& finding) {
    out << printable(file) << ':' << finding.place.line << ':';
    if (finding.place.column > 0)
        out << finding.place.column << ':';
    if (finding.severity == Severity::Warning)
        out << " warning:";
    else if (finding.severity == Severity::Note)
        out << " note:";
    out << ' ' << printable(finding.text) << '\n';
}

} // namespace

SourceKind sourceKind(std::string_view name) {
    if (name == "gem")
        return SourceKind::Gem;
    if (name == "semi")
        return SourceKind::Semi;
    const std::string ending = lower(std::filesystem::path(name).extension().string());
    if (ending == ".zbp")
        return SourceKind::Project;
    if (ending == ".smd")
        return SourceKind::Smd;
    if (ending == ".mdf")
        return SourceKind::Mdf;
    return ending == ".sml" ? SourceKind::Sml : SourceKind::Unknown;
}

int MessageSource::load(const std::string& name, ConsoleStreams streams) {
    const SourceKind kind = sourceKind(name);
    if (kind == SourceKind::Project || kind == SourceKind::Unknown)
        return loadProject(name, streams);
    return loadLibrary(name, kind, streams);
}

int MessageSource::loadLibrary(const std::string& name, SourceKind kind, ConsoleStreams streams) {
    library_ = std::make_unique<SECSLibraryStore>(codePageOfUser());
    std::string status;
    if (kind == SourceKind::Gem) {
        library_->load(gemLibraryText(), kFormatGem);
    } else if (kind == SourceKind::Semi) {
        for (const std::string& block : semiLibraryBlocks())
            library_->load(block, kFormatSemi);
    } else {
        auto bytes = readBytes(name);
        if (!bytes) {
            streams.err << printable(name) << ": cannot be read: " << printable(bytes.error().description)
                        << '\n';
            return kExitFileFault;
        }
        status = library_->loadBytes(*std::move(bytes), formatOf(kind));
    }
    return takeLibrary(name, status, streams);
}

int MessageSource::loadBytes(const std::string& name, std::string bytes, ConsoleStreams streams) {
    library_ = std::make_unique<SECSLibraryStore>(codePageOfUser());
    return takeLibrary(name, library_->loadBytes(std::move(bytes), formatOf(sourceKind(name))), streams);
}

int MessageSource::takeLibrary(const std::string& name, const std::string& status, ConsoleStreams streams) {
    messages_ = library_->getMessages();
    bool faulty = !status.empty();
    for (const Finding& finding : library_->findings()) {
        printFinding(streams.err, name, finding);
        faulty = faulty || finding.severity == Severity::Error;
    }
    if (!status.empty())
        streams.err << printable(name) << ": not a message library: no message could be read\n";
    return faulty ? kExitFault : kExitDone;
}

int MessageSource::loadProject(const std::string& name, ConsoleStreams streams) {
    int status = kExitDone;
    const auto file = zb::loadProject(name, streams, status);
    if (!file)
        return status;
    ofProject_ = file->project.messages.records();
    for (const SECSMessageRecord& record : ofProject_)
        messages_.push_back(&record);
    return kExitDone;
}

const MessageSource::ByName& MessageSource::byName() const {
    if (!byName_.empty())
        return byName_;
    for (const SECSMessageRecord* record : messages_) {
        const std::string name = upper(record->getName());
        const std::string numbers = upper(record->getNumbersText());
        byName_[name].push_back(record);
        if (numbers != name)
            byName_[numbers].push_back(record);
    }
    return byName_;
}

const MessageSource::ByName& MessageSource::byNumbers() const {
    if (!byNumbers_.empty())
        return byNumbers_;
    for (const SECSMessageRecord* record : messages_)
        byNumbers_[record->getNumbersText(" ")].push_back(record);
    return byNumbers_;
}

SECSLibraryStore::Records MessageSource::select(std::string_view wanted) const {
    const auto found = byName().find(upper(wanted));
    return found == byName().end() ? SECSLibraryStore::Records() : found->second;
}

SECSLibraryStore::Records MessageSource::byStreamFunction(std::string_view text) const {
    const auto found = byNumbers().find(std::string(text));
    return found == byNumbers().end() ? SECSLibraryStore::Records() : found->second;
}

bool reportColons(const SECSLibraryStore::Records& records, const std::string& file, std::ostream& err) {
    bool none = true;
    for (const SECSMessageRecord* record : records) {
        const std::string body = record->getBodyText();
        LineReader lines(body);
        while (const auto line = lines.next()) {
            if (!hasColon(*line))
                continue;
            err << printable(file) << ": " << printable(record->getName())
                << ": a project reads an item with \":\" as the head of a message: "
                << printable(line->substr(line->find(' ') + 1)) << '\n';
            none = false;
        }
    }
    return none;
}

} // namespace zb
