#pragma once

#include <string_view>

namespace zb {

/// The line that opens the sequence table.
inline constexpr std::string_view kSequenceMarker = "###[SEQUENCE TABLE]";
/// The line that opens the model's section; the version of its grammar stands behind it.
inline constexpr std::string_view kModelMarker = "###[TRANSACTION MODEL]";
inline constexpr std::string_view kModelVersion = "1";
/// The line that opens a TR message; its name stands behind it. It looks like the line of a section of its
/// own, so that the messages are found even when the section's own line was lost.
inline constexpr std::string_view kTRMessageMarker = "## [TR MESSAGE]";
inline constexpr std::string_view kEndOfTRMessage = "EndTRMessage";

/// Tells, line by line, to which section of a project file a line belongs.
class ProjectLines {
public:
    enum class Section {
        Header,
        Messages,
        Foreign, ///< opened by a line that this program does not know
        Model,
        SequenceMarker,
        Sequences,
    };

    Section take(std::string_view line);

private:
    void open(std::string_view line);

    Section section_ = Section::Header;
    bool inTRMessage_ = false;
};

} // namespace zb
