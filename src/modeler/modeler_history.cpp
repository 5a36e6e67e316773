#include "modeler/modeler_history.h"

#include "modeler/frm_tr_modeler.h"
#include "modeler/model_nodes.h"

#include <string>

namespace zb {

namespace {

// The order of the parts of a step.
constexpr std::size_t kModelPart = 2;
constexpr std::size_t kSequencePart = 3;

template<typename Part>
const Part* partOf(const UndoHistory::Step& step, std::size_t place) {
    return static_cast<const Part*>(step.parts[place].get());
}

} // namespace

ModelerHistory::ModelerHistory(frmTRModeler& window)
    : window_(window), received_(window.tvwRcvTRMsg, TreeJournal::Holds::View),
      sent_(window.tvwSndTRMsg, TreeJournal::Holds::View), model_([&window] { return window.store(); }),
      sequences_(window.sequenceView()) {
    for (StepSource* source : std::initializer_list<StepSource*>{&received_, &sent_, &model_, &sequences_})
        steps.add(*source);
    steps.onMoved = [this](const UndoHistory::Step& step, UndoHistory::Way way) { show(step, way); };
    steps.clear();
}

void ModelerHistory::show(const UndoHistory::Step& step, UndoHistory::Way way) {
    const auto* rows = partOf<SequencePart>(step, kSequencePart);
    List& list = window_.lvwSequence;
    if (rows != nullptr && rows->changesDocument()) {
        const std::size_t at = rows->affected();
        list.select(at < list.count() ? list.rows()[at].get() : nullptr);
    }
    if (showInTrees(step, way))
        return;
    const auto* model = partOf<ModelPart>(step, kModelPart);
    const std::string name = model == nullptr ? std::string() : model->affected();
    for (Tree* tree : {&window_.tvwRcvTRMsg, &window_.tvwSndTRMsg}) {
        Node* node = name.empty() ? nullptr : findMessageNode(*tree, name);
        if (node != nullptr)
            window_.showAgain(*tree, node);
    }
}

bool ModelerHistory::showInTrees(const UndoHistory::Step& step, UndoHistory::Way way) {
    bool shown = false;
    const auto showIn = [&](Tree& tree, std::size_t place) {
        const auto* part = partOf<TreePart>(step, place);
        if (part == nullptr || !part->changesNodes())
            return;
        window_.showAgain(tree, part->affected(way));
        shown = true;
    };
    showIn(window_.tvwRcvTRMsg, 0);
    showIn(window_.tvwSndTRMsg, 1);
    return shown;
}

} // namespace zb
