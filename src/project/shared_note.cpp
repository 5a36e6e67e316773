#include "project/shared_note.h"

#include "platform/file_layer.h"
#include "platform/file_replacer.h"
#include "platform/process_start.h"
#include "platform/text_file.h"
#include "platform/this_host.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cstdint>
#include <utility>

namespace zb {

namespace fs = std::filesystem;

namespace {

constexpr std::chrono::minutes kSilence{2};
constexpr std::string_view kEnding = ".lock";

std::string prefixOf(const fs::path& project) {
    return "." + project.filename().string() + ".";
}

/// A host may have any name; one that is no file name loses what does not fit.
std::string fileNameOf(std::string host) {
    std::replace(host.begin(), host.end(), '/', '_');
    return host;
}

template<typename Number>
Number readNumber(std::string_view text) {
    Number number = 0;
    std::from_chars(text.data(), text.data() + text.size(), number);
    return number;
}

/// The lines of a note: process, its start, host.
std::vector<std::string> linesOf(const fs::path& note) {
    const auto text = readBytes(note);
    std::vector<std::string> lines;
    for (std::size_t at = 0; text && at < text->size();) {
        const std::size_t end = std::min(text->find('\n', at), text->size());
        lines.push_back(text->substr(at, end - at));
        at = end + 1;
    }
    return lines;
}

} // namespace

SharedNote::SharedNote(FileLayer& files, IsShared isShared) : files_(files), isShared_(std::move(isShared)) {}

std::string SharedNote::content() const {
    const long process = files_.processId();
    return std::to_string(process) + "\n" + std::to_string(processStart(process).value_or(0)) + "\n" +
           hostName() + "\n";
}

void SharedNote::enter(const std::string& project) {
    leave();
    const fs::path path(project);
    if (project.empty() || !isShared_(path.parent_path()))
        return;
    const fs::path note = path.parent_path() / (prefixOf(path) + fileNameOf(hostName()) + "-" +
                                                std::to_string(files_.processId()) + std::string(kEnding));
    project_ = path;
    if (replaceFile(files_, note, content()))
        note_ = note;
}

void SharedNote::leave() {
    if (!note_.empty())
        static_cast<void>(files_.remove(note_));
    note_.clear();
    project_.clear();
}

// Written again and not only touched, so that its time is one of the file server.
void SharedNote::refresh() {
    if (!note_.empty())
        static_cast<void>(replaceFile(files_, note_, content()));
}

bool SharedNote::isStale(const fs::path& note, const ProjectHolder& holder) const {
    if (holder.host == hostName()) {
        const auto lines = linesOf(note);
        const auto start = processStart(holder.process);
        return !start || *start != readNumber<std::uint64_t>(lines[1]);
    }
    std::error_code error;
    const auto now = note_.empty() ? fs::file_time_type::clock::now() : fs::last_write_time(note_, error);
    return now - fs::last_write_time(note, error) > kSilence && !error;
}

std::vector<ProjectHolder> SharedNote::others() {
    std::vector<ProjectHolder> holders;
    if (project_.empty())
        return holders;
    refresh();
    const std::string prefix = prefixOf(project_);
    std::error_code error;
    for (fs::directory_iterator at(project_.parent_path(), error); !error && at != fs::directory_iterator();
         at.increment(error)) {
        const std::string name = at->path().filename().string();
        if (at->path() == note_ || !name.starts_with(prefix) || !name.ends_with(kEnding))
            continue;
        const auto lines = linesOf(at->path());
        if (lines.size() < 3)
            continue;
        const ProjectHolder holder{lines[2], readNumber<long>(lines[0])};
        if (isStale(at->path(), holder))
            static_cast<void>(files_.remove(at->path()));
        else
            holders.push_back(holder);
    }
    return holders;
}

} // namespace zb
