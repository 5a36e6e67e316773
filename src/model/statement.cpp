#include "model/statement.h"

#include "model/statement_text.h"
#include "model/tr_item_record.h"

namespace zb {

namespace {

Statement::Kind kindOf(std::string_view type) {
    if (type == kIfImage)
        return Statement::Kind::If;
    if (type == kElifImage)
        return Statement::Kind::Elif;
    return type == kElseImage ? Statement::Kind::Else : Statement::Kind::None;
}

// The reader of project files bounds the depth of elements.
std::vector<Statement> branchesOf(const XmlElement& element) {
    std::vector<Statement> branches;
    branches.reserve(element.children().size());
    for (const XmlElement& child : element.children())
        branches.push_back({kindOf(getElementAttribute(child, "Type")),
                            Condition::parse(getElementAttribute(child, "Condition")), child.text(),
                            branchesOf(child)});
    return branches;
}

void appendFlat(std::vector<const Statement*>& flat, const std::vector<Statement>& statements) {
    for (const Statement& statement : statements) {
        flat.push_back(&statement);
        appendFlat(flat, statement.branches);
    }
}

} // namespace

std::vector<Statement> statementsOf(const TRItemRecord& item) {
    return item.ConditionNode() ? branchesOf(*item.ConditionNode()) : std::vector<Statement>();
}

std::vector<const Statement*> flatStatements(const std::vector<Statement>& statements) {
    std::vector<const Statement*> flat;
    appendFlat(flat, statements);
    return flat;
}

} // namespace zb
