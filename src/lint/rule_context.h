#pragma once

#include "lint/checked_message.h"
#include "lint/layout_match.h"
#include "lint/message_index.h"
#include "lint/published_standard.h"

#include <vector>

namespace zb {

class CodePage;
class SECSMessageRecord;
class TRMessageRecord;
struct ProjectView;

/// What a rule of messages looks at.
struct MessageContext {
    const CheckedMessage& message;
    const MessageIndex& index; ///< holds the message itself, too
    const PublishedStandard& standard;
    const CodePage& codePage; ///< lengths of texts are counted in it
    /// Null for a message whose layout does not come with the program.
    const PublishedStandard::Message* published;
    LayoutMatch match; ///< without differences for such a message
};

/// What a rule of the model looks at.
struct ModelContext {
    const ProjectView& project;
    const CodePage& codePage;
    /// In the order of the model; with one TR message of a SECS message all of them.
    const std::vector<const TRMessageRecord*>& records;
    const PublishedStandard& standard;
};

/// What a rule of TR messages looks at. Its SECS message exists.
struct TRMessageContext {
    const TRMessageRecord& record;
    const SECSMessageRecord& secsMessage;
    const CheckedMessage& definition; ///< the same, parsed
    const ModelContext& model;
    bool isReceived = false; ///< by the modeled side
};

} // namespace zb
