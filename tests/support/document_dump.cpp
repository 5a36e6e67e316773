#include "support/document_dump.h"

#include "shell/application.h"

#include <sstream>

namespace zb::test {

namespace {

std::string colour(const OptionalColor& color) {
    return color ? std::to_string(color->red) + "," + std::to_string(color->green) + "," +
                       std::to_string(color->blue)
                 : "-";
}

int indexOf(const Node* node) {
    return node == nullptr ? 0 : node->index();
}

// By flat position, with the address: the nodes stay the same ones.
void dumpTree(std::ostream& out, const NodeTree& tree) {
    out << "tree of " << tree.count() << ", " << indexOf(tree.firstRoot()) << " to "
        << indexOf(tree.lastRoot()) << ", ordinary " << colour(tree.ordinaryForeColor()) << "\n";
    for (int index = 1; const Node* node = tree.at(index); ++index) {
        out << index << " " << node << " (" << indexOf(node->parent()) << " " << indexOf(node->previous())
            << " " << indexOf(node->next()) << " " << indexOf(node->child()) << " "
            << indexOf(node->lastChild()) << " " << node->children() << ") " << node->index() << " ["
            << node->text() << "] [" << node->key() << "] " << (tree.find(node->key()) == node)
            << node->bold() << node->expanded() << " " << colour(node->backColor()) << " "
            << colour(node->ownForeColor()) << " " << node->image() << "\n";
    }
}

void dumpRecord(std::ostream& out, const TRMessageRecord& record) {
    out << "message " << record.Name() << "|" << record.SECSMessage() << "|" << record.Condition() << "|"
        << record.Report() << record.Direction() << "\n";
    if (record.DataBlock()) {
        out << "  data " << record.DataBlock()->MessageName() << "\n";
        for (const SECSItemRecord& item : record.DataBlock()->getItems())
            out << "    " << composeItemText(item) << "\n";
    }
    for (const auto& item : record.TRItems()) {
        out << "  item " << item->Name() << "|" << item->Value() << "|" << item->ABSValue() << "|"
            << item->Type() << "|" << item->StatementText() << "|" << item->ConditionNode().has_value()
            << "\n";
    }
}

} // namespace

std::string dumpMessages(Application& application) {
    std::ostringstream out;
    dumpTree(out, application.frmSECSEditor.liveTree());
    out << "shown " << application.frmSECSEditor.cboSECSMessage.text() << "\n";
    for (const std::string& entry : application.frmSECSEditor.cboSECSMessage.entries())
        out << "entry " << entry << "\n";
    out << "expand " << application.frmSECSEditor.mnuExpand.checked() << "\n";
    return out.str();
}

std::string dumpModel(Application& application) {
    std::ostringstream out;
    dumpTree(out, application.frmTRModeler.tvwRcvTRMsg.nodes());
    dumpTree(out, application.frmTRModeler.tvwSndTRMsg.nodes());
    if (application.TRModelStore != nullptr)
        for (const auto& record : application.TRModelStore->TRMessages())
            dumpRecord(out, *record);
    const auto& rows = application.frmTRModeler.lvwSequence.rows();
    for (std::size_t at = 0; at < application.sequences.rows().size(); ++at) {
        const SequenceRow& row = application.sequences.rows()[at];
        out << "row " << row.picture << "|" << row.text << "|" << row.direction << "|" << row.transactionName
            << "|" << row.isWhole << " shown";
        for (const std::string& cell : rows[at]->cells())
            out << "|" << cell;
        out << "|" << rows[at]->image() << rows[at]->bold() << colour(rows[at]->foreColor()) << "\n";
    }
    out << rows.size() << " rows\n";
    out << "type " << application.ProjectType << "\n" << application.foreign.text();
    return out.str();
}

} // namespace zb::test
