#include "project/project_lines.h"

#include "messages/item_grammar.h"
#include "messages/smd/smd_lines.h"
#include "model/fact_text.h"
#include "model/tr_message_lines.h"
#include "platform/text.h"
#include "platform/text_file.h"
#include "project/project_sections.h"

#include <algorithm>

namespace zb {

namespace {

constexpr std::string_view kFieldSeparator = "\u00FF";

/// The positions on the way to the items of a data block, from their depths.
class BlockPath {
public:
    std::string next(int depth) {
        const auto size = static_cast<std::size_t>(std::clamp(depth, 1, kDeepestLevel));
        counts_.resize(size);
        ++counts_.back();
        std::string path;
        for (const int count : counts_)
            path.append(path.empty() ? "" : "/").append(std::to_string(count));
        return path;
    }

private:
    std::vector<int> counts_;
};

} // namespace

ProjectLines::ProjectLines(std::string_view projectText) : text_(projectText) {
    for (std::size_t start = 0; start < text_.size();) {
        starts_.push_back(start);
        const std::size_t end = text_.find('\n', start);
        start = end == std::string_view::npos ? text_.size() : end + 1;
    }
    const ProjectSections sections = splitProject(text_);
    readMessages(sections);
    readModel(sections);
    readSequences(sections);
}

void ProjectLines::locate(FindingPlace& place) const {
    const auto at = static_cast<std::size_t>(std::max(place.nodeIndex, 1)) - 1;
    Position position;
    if (place.subject == FindingPlace::Subject::Message && at < nodes_.size())
        position = nodes_[at];
    if (place.subject == FindingPlace::Subject::Sequence && at < sequences_.size())
        position = sequences_[at];
    if (place.subject == FindingPlace::Subject::TRMessage) {
        auto found = model_.find({place.message, place.item});
        if (found == model_.end())
            found = model_.find({place.message, {}});
        if (found != model_.end())
            position = found->second;
    }
    place.line = position.line;
    place.column = position.column;
}

std::size_t ProjectLines::lineOf(const char* place) const {
    const auto offset = static_cast<std::size_t>(place - text_.data());
    return static_cast<std::size_t>(std::upper_bound(starts_.begin(), starts_.end(), offset) -
                                    starts_.begin());
}

ProjectLines::Position ProjectLines::positionOf(std::string_view line) const {
    const std::size_t indentation = std::min(line.find_first_not_of(' '), line.size());
    return {lineOf(line.data()), indentation + 1};
}

void ProjectLines::readMessages(const ProjectSections& sections) {
    // As the messages of a project are put together from several sections.
    std::string text;
    std::vector<Position> lines;
    for (const std::string_view part : sections.messages) {
        if (!text.empty()) {
            text.append(kMessagesMarker).append("\r\n");
            lines.push_back({});
        }
        LineReader reader(part);
        while (const auto line = reader.next())
            lines.push_back(positionOf(*line));
        text += part;
    }
    for (const std::size_t line : linesOfNodes(text))
        nodes_.push_back(line <= lines.size() ? lines[line - 1] : Position{});
}

void ProjectLines::readModel(const ProjectSections& sections) {
    for (const std::string_view part : sections.model) {
        std::string message;
        BlockPath path;
        bool isOpen = false;
        LineReader reader(part);
        while (const auto line = reader.next()) {
            std::string_view rest = trimmed(*line);
            if (line->starts_with(kTRMessageMarker)) {
                rest = trimmed(line->substr(kTRMessageMarker.size() - 1));
                takeWord(rest);
                message = factText(rest);
                model_.emplace(std::pair(message, std::string()), positionOf(*line));
                path = {};
                isOpen = true;
                continue;
            }
            const std::string_view keyword = takeWord(rest);
            if (keyword == kEndOfTRMessage)
                isOpen = false;
            else if (isOpen && keyword == "TRItem")
                model_.emplace(std::pair(message, factText(rest)), positionOf(*line));
            else if (isOpen && keyword == "Item")
                model_.emplace(std::pair(message, path.next(countOf(takeWord(rest)))), positionOf(*line));
        }
    }
}

void ProjectLines::readSequences(const ProjectSections& sections) {
    LineReader reader(sections.sequences);
    while (const auto line = reader.next())
        if (contains(*line, kFieldSeparator))
            sequences_.push_back(positionOf(*line));
}

} // namespace zb
