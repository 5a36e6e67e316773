#pragma once

#include "project/project.h"

namespace zb {

class SECSMessageStore;

/// What the checks and the documents of the transaction model look at: parts of a `Project` or of the state
/// of a program, together with the messages as a walk left them. It owns nothing.
struct ProjectView {
    Side side;
    const SECSMessageStore& messages;
    const TRModelStore* model; ///< null as long as no project has been created or opened
    const Sequences& sequences;
};

inline ProjectView viewOf(const Project& project, const SECSMessageStore& messages) {
    return {project.side, messages, project.model.get(), project.sequences};
}

} // namespace zb
