#pragma once

#include "console/message_source.h"

#include <string>

namespace zb {

/// The bytes of a file of this kind with the messages. A kind that is no file gives those of an SMD file.
std::string libraryBytes(const SECSLibraryStore::Records& records, SourceKind kind);

} // namespace zb
