#pragma once

#include "messages/library_store.h"

#include <string>
#include <vector>

namespace zb {

/// A file name for each message, in the same order: the name of the message with `ending`. What file systems
/// or shells would take amiss becomes "_"; names that differ in case only get a number ("S1F1_2.sml").
std::vector<std::string> messageFileNames(const SECSLibraryStore::Records& records,
                                          const std::string& ending);

} // namespace zb
