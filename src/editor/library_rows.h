#pragma once

#include <string>

namespace zb {

class List;
class NodeTree;
class SECSMessageRecord;

/// The picture and the colour of the rows whose messages the project has already.
inline constexpr const char* kInProjectPicture = "InProject";

/// Marks the rows whose messages the project has, by their names, and takes the mark from the others.
void markRowsInProject(List& list, const NodeTree& project);

/// What a message is made of, for a tool tip: its head in words, its description, and its items.
std::string describeStructure(const SECSMessageRecord& message);

} // namespace zb
