#include "lint/layout_match.h"

#include <algorithm>
#include <limits>

namespace zb {

namespace {

/// A wrong shape weighs more than a wrong format.
constexpr int kShapeCost = 10;
constexpr int kFormatCost = 1;

std::string foundText(const CheckedMessage& message, const CheckedItem& item) {
    if (!item.isList())
        return item.record.getType();
    if (!item.record.isFixed())
        return "a variable list";
    std::string text = "a list of " + std::to_string(item.children.size());
    for (std::size_t at = 0; at < item.children.size(); ++at) {
        const CheckedItem& child = message.items[item.children[at]];
        const std::string& name = child.record.getName();
        text += at == 0 ? " (" : ", ";
        text += child.isList() || name.empty() ? child.record.getType() : name;
    }
    return item.children.empty() ? text : text + ")";
}

class FormMatcher {
public:
    FormMatcher(const CheckedMessage& message, const PublishedStandard& standard)
        : message_(message), standard_(standard) {
        match_.expected.resize(message.items.size());
    }

    void run(const LayoutForm& form) {
        const auto& top = message_.topLevel;
        if (form.kind == LayoutForm::Kind::Nothing) {
            if (!top.empty())
                differ(top.front(), "no data", foundText(message_, message_.items[top.front()]));
        } else if (top.empty()) {
            differ(std::nullopt, describe(form), "no data");
        } else if (top.size() > 1) {
            differ(top[1], "one item or list", std::to_string(top.size()) + " items");
        } else {
            matchItem(form, top.front());
        }
    }

    int cost() const { return cost_; }
    LayoutMatch take() { return std::move(match_); }

private:
    void differ(std::optional<std::size_t> item, const std::string& expected, const std::string& found) {
        match_.differences.push_back({item, "Expected " + expected + ", found " + found});
        cost_ += kShapeCost;
    }

    // As deep as the published form, not as the message.
    void matchItem(const LayoutForm& form, std::size_t at) {
        const CheckedItem& item = message_.items[at];
        const std::string& type = item.record.getType();
        const ItemKind kind = itemKind(type);
        if (form.kind == LayoutForm::Kind::Item) {
            match_.expected[at] = form.item;
            matchFormat(form, at, type);
            return;
        }
        if (type == "X" || kind == ItemKind::Unknown)
            return;
        if (kind != ItemKind::List)
            return differ(at, describe(form), foundText(message_, item));
        if (form.kind == LayoutForm::Kind::Repeat) {
            for (const std::size_t child : item.children)
                matchItem(form.parts.front(), child);
            return;
        }
        matchParts(form, at);
    }

    void matchFormat(const LayoutForm& form, std::size_t at, const std::string& type) {
        const PublishedItem* published = standard_.item(form.item);
        if (published == nullptr || type == "X" || itemKind(type) == ItemKind::Unknown ||
            mayHaveFormat(*published, type))
            return;
        if (type == "L")
            differ(at, describe(form), foundText(message_, message_.items[at]));
        else
            cost_ += kFormatCost;
    }

    void matchParts(const LayoutForm& form, std::size_t at) {
        const CheckedItem& item = message_.items[at];
        const bool countIsWrong =
            item.record.isFixed() && static_cast<std::size_t>(item.record.getCount()) != item.children.size();
        if (!item.record.isFixed() && !form.parts.empty())
            return differ(at, describe(form), foundText(message_, item));
        if (item.children.size() != form.parts.size()) {
            if (!countIsWrong)
                differ(at, describe(form), foundText(message_, item));
            return;
        }
        for (std::size_t part = 0; part < form.parts.size(); ++part)
            matchItem(form.parts[part], item.children[part]);
    }

    const CheckedMessage& message_;
    const PublishedStandard& standard_;
    LayoutMatch match_;
    int cost_ = 0;
};

} // namespace

LayoutMatch matchLayout(const CheckedMessage& message, const PublishedStandard::Message& published,
                        const PublishedStandard& standard) {
    LayoutMatch best;
    int bestCost = std::numeric_limits<int>::max();
    for (const LayoutForm& form : published.forms) {
        FormMatcher matcher(message, standard);
        matcher.run(form);
        if (matcher.cost() >= bestCost)
            continue;
        bestCost = matcher.cost();
        best = matcher.take();
    }
    return best;
}

} // namespace zb
