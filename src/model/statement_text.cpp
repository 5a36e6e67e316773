#include "model/statement_text.h"

#include "platform/text.h"
#include "platform/tree/node.h"

namespace zb {

namespace {

constexpr std::string_view kLineEnd = "\r\n";

std::string statementLines(const Node& node, std::size_t depth) {
    const std::string indentation(depth, ' ');
    std::string lines;
    // At the top a value has siblings like any statement.
    if (depth > 0 && node.child()->image() == kItemValueImage)
        return indentation + node.child()->text();
    for (const Node* child = node.child(); child != nullptr; child = child->next()) {
        if (child != node.child())
            lines += kLineEnd;
        lines += indentation + child->text();
        if (child->child() != nullptr) {
            lines += kLineEnd;
            lines += statementLines(*child, depth + 1);
        }
    }
    return lines;
}

} // namespace

std::string statementTextOf(const Node& root) {
    return root.child() == nullptr ? std::string(kNoStatements) : statementLines(root, 0);
}

std::size_t lineDepth(std::string_view line) {
    const std::size_t depth = line.find_first_not_of(' ');
    return depth == std::string_view::npos ? line.size() : depth;
}

std::string_view lineImage(std::string_view line) {
    const std::string_view text = trimmed(line);
    for (const std::string_view image : {kElifImage, kElseImage, kIfImage}) {
        if (text.starts_with(image))
            return image;
    }
    return kItemValueImage;
}

} // namespace zb
