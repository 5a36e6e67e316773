#include "lint/layout_form.h"

#include <algorithm>

namespace zb {

namespace {

constexpr std::string_view kList = "L[";
constexpr std::string_view kRepeat = "L*[";
constexpr std::string_view kNoData = "-";

/// Reads one structure. The tables come with the program, so their depth is known to be small.
class FormParser {
public:
    explicit FormParser(std::string_view text) : rest_(text) {}

    std::optional<LayoutForm> run() {
        auto form = readForm();
        return form && rest_.empty() ? std::move(form) : std::nullopt;
    }

private:
    bool take(std::string_view expected) {
        if (!rest_.starts_with(expected))
            return false;
        rest_.remove_prefix(expected.size());
        return true;
    }

    std::optional<LayoutForm> readForm() {
        if (take(kNoData))
            return LayoutForm{};
        LayoutForm form;
        if (take(kList))
            form.kind = LayoutForm::Kind::List;
        else if (take(kRepeat))
            form.kind = LayoutForm::Kind::Repeat;
        else
            return readItem();
        while (!take("]")) {
            if (!form.parts.empty() && !take(", "))
                return std::nullopt;
            auto part = readForm();
            if (!part)
                return std::nullopt;
            form.parts.push_back(std::move(*part));
        }
        if (form.kind == LayoutForm::Kind::Repeat && form.parts.size() != 1)
            return std::nullopt;
        return form;
    }

    std::optional<LayoutForm> readItem() {
        const auto end = rest_.find_first_of(",]");
        LayoutForm form{LayoutForm::Kind::Item, rest_.substr(0, end), {}};
        rest_.remove_prefix(form.item.size());
        return form.item.empty() ? std::nullopt : std::optional(std::move(form));
    }

    std::string_view rest_;
};

std::string partName(const LayoutForm& form) {
    return form.kind == LayoutForm::Kind::Item ? std::string(form.item) : "L";
}

} // namespace

std::optional<LayoutForm> LayoutForm::parse(std::string_view text) {
    return FormParser(text).run();
}

std::string describe(const LayoutForm& form) {
    switch (form.kind) {
    case LayoutForm::Kind::Nothing:
        return "no data";
    case LayoutForm::Kind::Item:
        return std::string(form.item);
    case LayoutForm::Kind::Repeat: {
        const LayoutForm& part = form.parts.front();
        const bool isItem = part.kind == LayoutForm::Kind::Item;
        return "a list of any number of " + (isItem ? std::string(part.item) : "lists");
    }
    case LayoutForm::Kind::List:
        break;
    }
    std::string text = "a list of " + std::to_string(form.parts.size());
    for (std::size_t at = 0; at < form.parts.size(); ++at)
        text.append(at == 0 ? " (" : ", ").append(partName(form.parts[at]));
    return form.parts.empty() ? text : text + ")";
}

} // namespace zb
