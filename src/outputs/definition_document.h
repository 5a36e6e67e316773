#pragma once

#include <string>

namespace zb {

class SECSMessageStore;

/// The file formats of message definitions.
enum class DefinitionForm { Smd, Mdf };

/// The text of the definition file for the messages that a build walk left in the store.
std::string composeDefinitions(const SECSMessageStore& messages, DefinitionForm form);

} // namespace zb
