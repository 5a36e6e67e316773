#pragma once

#include "platform/progress.h"
#include "project/project.h"

#include <string>
#include <string_view>

namespace zb {

// The layout of a project file. All texts here are decoded; lines end in CR LF when they are composed, and in
// CR LF or LF when they are read.

/// Whether there is any of the lines by which a reader of projects finds its way.
bool hasProjectLine(std::string_view text);

/// Any text gives a project: missing sections are empty, and of a damaged one everything recognisable is
/// read.
Project parseProject(std::string_view text, const Progress& progress = {});

/// The side that the header names. A file that ends after its header counts as a host's.
Side readSide(std::string_view projectText);

/// The whole text of a project file.
std::string composeProject(const Project& project);
/// The first part of it: header and messages. It is the text of a project without a model.
std::string composeStart(Side side, const ProjectMessages& messages);
/// The rest of it: foreign sections, transaction model and sequences.
std::string composeModelSections(const ForeignSections& foreign, const TRModelStore& model,
                                 const Sequences& sequences);

/// The text of a project file with more messages at the end of its section of messages, or in a new section;
/// the rest is unchanged. `messages` are whole lines in project form.
std::string insertMessages(std::string_view projectText, std::string_view messages);

} // namespace zb
