#include "workbench/problem_watch.h"

#include "controls/desktop.h"
#include "controls/tree.h"
#include "project/module_state.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace zb {

namespace {

using namespace std::chrono_literals;
// A window that is busy for longer answers late. The last piece of a slice may take some time, too.
constexpr std::chrono::milliseconds kSlice = 5ms;

} // namespace

ProblemWatch::ProblemWatch(Desktop& desktop, ModuleState& state, Tree& messages)
    : state_(state), tree_(messages), messages_(state.codePage), model_(state.codePage),
      slices_(
          desktop, kSlice, [this] { return work(); }, [this] { report(); }) {
    messages_.onChange = [this](const Findings& gone, const Findings& come) { note(gone, come); };
    model_.onChange = messages_.onChange;
    messages_.onDefinition = [this](const std::string& name) { model_.touchDefinition(name); };
    tree_.addWatcher(*this);
}

ProblemWatch::~ProblemWatch() {
    tree_.removeWatcher(*this);
    if (state_.TRModelStore != nullptr)
        state_.TRModelStore->onTouched = nullptr;
}

void ProblemWatch::restart() {
    messages_.restart(tree_.nodes(), state_.codePage, standard_);
    restartModel();
    mostSteps_ = stepsLeft();
    hasChanged_ = true;
    slices_.schedule();
}

// The model is checked after the messages that it is about.
void ProblemWatch::restartModel() {
    modelStore_ = state_.TRModelStore.get();
    projectType_ = state_.ProjectType;
    model_.restart({&tree_.nodes(), modelStore_, &state_.sequences, projectType_}, state_.codePage,
                   standard_);
    if (modelStore_ != nullptr)
        state_.TRModelStore->onTouched = [this](const std::string& name) {
            model_.touch(name);
            slices_.schedule();
        };
}

void ProblemWatch::modelStepped() {
    model_.touchSequences();
    if (!isDone())
        slices_.schedule();
}

void ProblemWatch::setStandard(bool on) {
    if (standard_ == on)
        return;
    standard_ = on;
    restart();
}

void ProblemWatch::setSilencings(Silencings silencings) {
    silencings_ = std::move(silencings);
    countAgain();
    hasChanged_ = true;
    report();
}

void ProblemWatch::takeFrom(Findings& kept, Findings findings) {
    note(kept, findings);
    kept = std::move(findings);
    slices_.schedule();
}

void ProblemWatch::finish() {
    slices_.finish();
}

/// Does a small piece; false when there is nothing to do.
bool ProblemWatch::work() {
    if (modelStore_ != state_.TRModelStore.get() || projectType_ != state_.ProjectType)
        restartModel();
    if (!messages_.isDone())
        messages_.checkNext();
    else if (!model_.isDone())
        model_.checkNext();
    else
        return false;
    hasChanged_ = hasChanged_ || isDone();
    return true;
}

int ProblemWatch::percentDone() const {
    if (isDone())
        return 100;
    const std::size_t left = std::min(stepsLeft(), mostSteps_);
    return mostSteps_ == 0 ? 0 : std::min(99, static_cast<int>(100 * (mostSteps_ - left) / mostSteps_));
}

void ProblemWatch::report() {
    mostSteps_ = isDone() ? 0 : std::max(mostSteps_, stepsLeft());
    const auto& report = std::exchange(hasChanged_, false) ? onChange : onProgress;
    if (report)
        report();
}

void ProblemWatch::note(const Findings& gone, const Findings& come) {
    tally_.remove(gone, silencings_);
    tally_.add(come, silencings_);
    hasChanged_ = true;
}

void ProblemWatch::countAgain() {
    tally_.clear();
    visit([this](const ProblemView& problem) {
        tally_.add({problem.finding}, silencings_);
        return true;
    });
}

void ProblemWatch::visit(const std::function<bool(const ProblemView& problem)>& visit) const {
    const auto visitOne = [&](const Finding& finding, const Node* root) {
        return visit({finding, root, silencings_.silences(finding)});
    };
    if (!messages_.visit([&](const Node& root, const Finding& finding) { return visitOne(finding, &root); }))
        return;
    if (modelStore_ == state_.TRModelStore.get() &&
        !model_.visit([&](const Finding& finding) { return visitOne(finding, nullptr); }))
        return;
    for (const Findings* findings : {&import_, &pasted_})
        for (const Finding& finding : *findings)
            if (!visitOne(finding, nullptr))
                return;
}

void ProblemWatch::afterInsert(Node& node) {
    messages_.afterInsert(node);
    slices_.schedule();
}

void ProblemWatch::beforeRemove(Node& node) {
    messages_.beforeRemove(node);
    slices_.schedule();
}

void ProblemWatch::nodeChanged(Node& node) {
    messages_.nodeChanged(node);
    slices_.schedule();
}

void ProblemWatch::afterFill() {
    restart();
}

} // namespace zb
