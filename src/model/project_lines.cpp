#include "model/project_lines.h"

#include "platform/text.h"

namespace zb {

namespace {

constexpr std::string_view kHeaderMarker = "###[PROJECT INFORMATION]";
constexpr std::string_view kMessagesMarker = "## [EDIT SMD]";

} // namespace

ProjectLines::Section ProjectLines::take(std::string_view line) {
    if (section_ == Section::Sequences)
        return section_;
    if (line == kSequenceMarker) {
        section_ = Section::Sequences;
        return Section::SequenceMarker;
    }
    if (line.starts_with("##"))
        open(line);
    else if (inTRMessage_ && trimmed(line) == kEndOfTRMessage)
        inTRMessage_ = false;
    return section_;
}

void ProjectLines::open(std::string_view line) {
    // A line of no known section within a message is damage, and the message goes on behind it.
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

} // namespace zb
