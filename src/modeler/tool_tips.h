#pragma once

#include <string>
#include <string_view>

namespace zb {

class SECSMessageStore;
class TRItemRecord;
class TRMessageRecord;

// What the lists of the modeler say beside their cells.

/// Stream and function of a SECS message, "S6 F11"; empty for an unknown message.
std::string streamAndFunction(const SECSMessageStore& messages, std::string_view name);
/// The name of a TR message, its SECS message with stream and function, and its condition, one line each.
std::string messageToolTip(const TRMessageRecord& record, const SECSMessageStore& messages);
/// The name of a TR item, and the data item and the SECS message that it takes its value from.
std::string itemToolTip(const TRMessageRecord& record, const TRItemRecord& item,
                        const SECSMessageStore& messages);

} // namespace zb
