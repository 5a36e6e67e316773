#pragma once

#include <string_view>
#include <vector>

namespace zb {

/// The lines by which the readers of a project file find its sections.
/// @{
inline constexpr std::string_view kHeaderMarker = "###[PROJECT INFORMATION]";
inline constexpr std::string_view kMessagesMarker = "## [EDIT SMD]";
/// The version of the grammar follows the marker.
inline constexpr std::string_view kModelMarker = "###[TRANSACTION MODEL]";
inline constexpr std::string_view kSequenceMarker = "###[SEQUENCE TABLE]";
/// @}

/// Runs of whole lines, as views into one text.
using TextParts = std::vector<std::string_view>;

/// The text of a project file, cut into its sections. The lines that open a section are not in the parts,
/// except those of foreign sections and of TR messages.
struct ProjectSections {
    /// Whether there is a line that opens the messages; they may have none.
    bool hasMessages = false;
    TextParts messages;
    /// What is between unknown markers and the next known one.
    TextParts foreign;
    TextParts model;
    /// All that follows the marker of the sequences, which are the last section.
    std::string_view sequences;
};

ProjectSections splitProject(std::string_view projectText);

} // namespace zb
