#include "support/document_dump.h"

#include "shell/application.h"

#include <array>
#include <charconv>
#include <cstdint>
#include <initializer_list>
#include <string_view>
#include <utility>

namespace zb::test {

namespace {

/// A text that is appended to. A stream takes several times as long, and the tests of undo make dumps after
/// each action.
class Dump {
public:
    Dump() = default;
    /// Begins with nothing, in the memory of the text.
    explicit Dump(std::string&& memory) : text_(std::move(memory)) { text_.clear(); }

    Dump& operator<<(std::string_view text) {
        text_ += text;
        return *this;
    }
    Dump& operator<<(const char* text) { return *this << std::string_view(text); }
    Dump& operator<<(long long number) {
        std::array<char, 24> digits{};
        const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), number).ptr;
        text_.append(digits.data(), end);
        return *this;
    }
    Dump& operator<<(int number) { return *this << static_cast<long long>(number); }
    Dump& operator<<(bool value) { return *this << static_cast<long long>(value); }
    Dump& operator<<(std::size_t number) { return *this << static_cast<long long>(number); }
    /// With spaces between.
    void numbers(std::initializer_list<std::int64_t> all) {
        constexpr std::size_t kMostDigits = 21;
        const std::size_t before = text_.size();
        text_.resize(before + all.size() * kMostDigits);
        char* end = text_.data() + before;
        for (const std::int64_t number : all) {
            end = std::to_chars(end, end + kMostDigits - 1, number).ptr;
            *end++ = ' ';
        }
        text_.resize(static_cast<std::size_t>(end - text_.data()));
    }
    Dump& operator<<(const OptionalColor& color) {
        if (!color)
            return *this << "-";
        return *this << int{color->red} << "," << int{color->green} << "," << int{color->blue};
    }
    std::string take() { return std::move(text_); }

private:
    std::string text_;
};

int indexOf(const Node* node) {
    return node == nullptr ? 0 : node->index();
}

// By flat position, with the address: the nodes stay the same ones.
void dumpTree(Dump& out, const NodeTree& tree) {
    out << "tree of " << tree.count() << ", " << indexOf(tree.firstRoot()) << " to "
        << indexOf(tree.lastRoot()) << ", ordinary " << tree.ordinaryForeColor() << "\n";
    for (int index = 1; const Node* node = tree.at(index); ++index) {
        const bool isFound = node->key().empty() || tree.find(node->key()) == node;
        out.numbers({index, reinterpret_cast<std::intptr_t>(node), indexOf(node->parent()),
                     indexOf(node->previous()), indexOf(node->next()), indexOf(node->child()),
                     indexOf(node->lastChild()), node->children(), node->index(), isFound, node->bold(),
                     node->expanded()});
        out << " [" << node->text() << "] [" << node->key() << "] " << node->backColor() << " "
            << node->ownForeColor() << " " << node->image() << "\n";
    }
}

void dumpRecord(Dump& out, const TRMessageRecord& record) {
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

void dumpRecords(Dump& out, Application& application) {
    if (application.TRModelStore == nullptr)
        return;
    for (const auto& record : application.TRModelStore->TRMessages())
        dumpRecord(out, *record);
}

/// All but the tree.
void dumpRestOfMessages(Dump& out, Application& application) {
    out << "shown " << application.frmSECSEditor.cboSECSMessage.text() << "\n";
    for (const std::string& entry : application.frmSECSEditor.cboSECSMessage.entries())
        out << "entry " << entry << "\n";
    out << "expand " << application.frmSECSEditor.mnuExpand.checked() << "\n";
}

/// All but the trees and the TR messages.
void dumpRestOfModel(Dump& out, Application& application) {
    const auto& rows = application.frmTRModeler.lvwSequence.rows();
    for (std::size_t at = 0; at < application.sequences.rows().size(); ++at) {
        const SequenceRow& row = application.sequences.rows()[at];
        out << "row " << row.picture << "|" << row.text << "|" << row.direction << "|" << row.transactionName
            << "|" << row.isWhole << " shown";
        for (const std::string& cell : rows[at]->cells())
            out << "|" << cell;
        out << "|" << rows[at]->image() << rows[at]->bold() << rows[at]->foreColor() << "\n";
    }
    out << rows.size() << " rows\n";
    out << "type " << application.ProjectType << "\n" << application.foreign.text();
}

} // namespace

std::string dumpMessages(Application& application) {
    Dump out;
    dumpTree(out, application.frmSECSEditor.liveTree());
    dumpRestOfMessages(out, application);
    return out.take();
}

std::string dumpModel(Application& application) {
    Dump out;
    dumpTree(out, application.frmTRModeler.tvwRcvTRMsg.nodes());
    dumpTree(out, application.frmTRModeler.tvwSndTRMsg.nodes());
    dumpRecords(out, application);
    dumpRestOfModel(out, application);
    return out.take();
}

TreeDump::TreeDump(Tree& tree) : tree_(tree) {
    tree_.addWatcher(*this);
}

TreeDump::~TreeDump() {
    tree_.removeWatcher(*this);
}

const std::string& TreeDump::text() {
    if (!current_) {
        Dump out(std::move(text_));
        dumpTree(out, tree_.nodes());
        text_ = out.take();
        current_ = true;
    }
    return text_;
}

ReportedDumps::ReportedDumps(Application& application)
    : application_(application), tree_(application.frmSECSEditor.tvwEdit),
      received_(application.frmTRModeler.tvwRcvTRMsg), sent_(application.frmTRModeler.tvwSndTRMsg) {
    application.modelerHistory.steps.addListener([this] { recordsAreCurrent_ = false; });
}

std::string ReportedDumps::messages() {
    Dump out;
    out << tree_.text();
    dumpRestOfMessages(out, application_);
    return out.take();
}

std::string ReportedDumps::model() {
    if (!recordsAreCurrent_) {
        Dump records(std::move(records_));
        dumpRecords(records, application_);
        records_ = records.take();
        recordsAreCurrent_ = true;
    }
    Dump out;
    out << received_.text() << sent_.text() << records_;
    dumpRestOfModel(out, application_);
    return out.take();
}

} // namespace zb::test
