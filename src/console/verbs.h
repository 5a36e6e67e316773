#pragma once

#include "console/verb.h"

#include <memory>

namespace zb {

/// The verbs of zbc that work without a window.
/// @{
std::unique_ptr<Verb> makeAddVerb();
std::unique_ptr<Verb> makeBuildVerb();
std::unique_ptr<Verb> makeCheckVerb();
std::unique_ptr<Verb> makeCompatVerb();
std::unique_ptr<Verb> makeConvertVerb();
std::unique_ptr<Verb> makeDecodeVerb();
std::unique_ptr<Verb> makeDiffVerb();
std::unique_ptr<Verb> makeGitSetupVerb();
std::unique_ptr<Verb> makeGenerateVerb();
std::unique_ptr<Verb> makeDocumentVerb();
std::unique_ptr<Verb> makeHistoryVerb();
std::unique_ptr<Verb> makeLearnVerb();
std::unique_ptr<Verb> makeListVerb();
std::unique_ptr<Verb> makeMergeVerb();
std::unique_ptr<Verb> makeRehearseVerb();
/// @}

} // namespace zb
