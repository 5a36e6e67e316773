#include "project/project_sections.h"

#include "model/tr_message_lines.h"
#include "platform/text.h"
#include "platform/text_file.h"

namespace zb {

namespace {

/// Says, line by line, to which section of a project file a line belongs.
class SectionSorter {
public:
    enum class Section { Header, Messages, Foreign, Model };

    Section take(std::string_view line) {
        if (line.starts_with("##"))
            open(line);
        else if (inTRMessage_ && trimmed(line) == kEndOfTRMessage)
            inTRMessage_ = false;
        return section_;
    }

private:
    void open(std::string_view line) {
        // A line of no known section within a message is damage; the message continues after it.
        const bool goesOn = inTRMessage_;
        inTRMessage_ = line.starts_with(kTRMessageMarker);
        if (trimmed(line) == kMessagesMarker)
            section_ = Section::Messages;
        else if (line == kHeaderMarker)
            section_ = Section::Header;
        else if (inTRMessage_ || line.starts_with(kModelMarker))
            section_ = Section::Model;
        else if (goesOn)
            inTRMessage_ = true;
        else
            section_ = Section::Foreign;
    }

    Section section_ = Section::Header;
    bool inTRMessage_ = false;
};

/// Gathers lines into runs of lines that follow each other.
class PartGatherer {
public:
    explicit PartGatherer(TextParts& parts) : parts_(parts) {}

    void take(std::string_view line) {
        if (!open_)
            parts_.push_back(line);
        else
            parts_.back() = {parts_.back().data(),
                             static_cast<std::size_t>(line.data() - parts_.back().data()) + line.size()};
        open_ = true;
    }
    void close() { open_ = false; }

private:
    TextParts& parts_;
    bool open_ = false;
};

class ProjectSplitter {
public:
    explicit ProjectSplitter(std::string_view text) : text_(text) {}

    ProjectSections run() {
        std::size_t start = 0;
        while (start < text_.size()) {
            const std::size_t end = text_.find('\n', start);
            const std::size_t next = end == std::string_view::npos ? text_.size() : end + 1;
            take(text_.substr(start, next - start));
            start = next;
        }
        return std::move(sections_);
    }

private:
    void take(std::string_view wholeLine) {
        std::string_view line = wholeLine;
        for (const char end : {'\n', '\r'})
            if (line.ends_with(end))
                line.remove_suffix(1);
        takeMessageLine(wholeLine, line);
        if (inSequences_)
            return;
        if (line == kSequenceMarker) {
            inSequences_ = true;
            sections_.sequences =
                text_.substr(static_cast<std::size_t>(wholeLine.data() - text_.data()) + wholeLine.size());
            return;
        }
        const SectionSorter::Section section = sorter_.take(line);
        takeInto(section == SectionSorter::Section::Foreign, foreign_, wholeLine);
        takeInto(section == SectionSorter::Section::Model, model_, wholeLine);
    }

    static void takeInto(bool belongs, PartGatherer& parts, std::string_view line) {
        if (belongs)
            parts.take(line);
        else
            parts.close();
    }

    /// Messages are found even after the sequences.
    void takeMessageLine(std::string_view wholeLine, std::string_view line) {
        if (line.starts_with("##")) {
            inMessages_ = trimmed(line) == kMessagesMarker;
            sections_.hasMessages = sections_.hasMessages || inMessages_;
            messages_.close();
        } else if (inMessages_) {
            messages_.take(wholeLine);
        }
    }

    std::string_view text_;
    ProjectSections sections_;
    SectionSorter sorter_;
    PartGatherer messages_{sections_.messages};
    PartGatherer foreign_{sections_.foreign};
    PartGatherer model_{sections_.model};
    bool inMessages_ = false;
    bool inSequences_ = false;
};

} // namespace

ProjectSections splitProject(std::string_view projectText) {
    return ProjectSplitter(projectText).run();
}

} // namespace zb
