#include "modeler/unfinished_work.h"

#include "controls/desktop.h"
#include "controls/window.h"

#include <utility>

namespace zb {

void UnfinishedWork::begin() {
    begun_ = contents();
}

void UnfinishedWork::finish() {
    begun_.reset();
    window_.desktop().withdraw(topicOf(dialog_.subject()));
}

void UnfinishedWork::putAside() {
    if (!begun_ || !window_.visible())
        return;
    Kept kept{*std::exchange(begun_, std::nullopt), contents(), {}};
    const bool isTypedIn = dialog_.isTypedIn && dialog_.isTypedIn();
    if (!isTypedIn && kept.contents.holdsSameAs(kept.begun, dialog_.filledIn))
        return;
    kept.restoreState = dialog_.keepState();
    const std::string subject = dialog_.subject();
    topics_.push_back(topicOf(subject));
    const auto shared = std::make_shared<const Kept>(std::move(kept));
    window_.desktop().post({"Put aside unfinished: " + subject,
                            {{"Bring back", [this, shared] { bringBack(*shared); }}},
                            topics_.back(),
                            Notice::Stays::UntilClosed});
}

void UnfinishedWork::bringBack(const Kept& kept) {
    putAside();
    window_.show();
    kept.contents.showIn(window_);
    kept.restoreState();
    begun_ = kept.begun;
}

void UnfinishedWork::forget() {
    begun_.reset();
    for (const std::string& topic : std::exchange(topics_, {}))
        window_.desktop().withdraw(topic);
}

std::string UnfinishedWork::topicOf(const std::string& subject) const {
    return "unfinished " + window_.name() + " " + subject;
}

} // namespace zb
