#include "controls/list.h"
#include "controls/tree.h"
#include "controls/window.h"
#include "platform/printable.h"
#include "platform/text.h"
#include "script/command_rules.h"
#include "script/matching.h"
#include "script/script_failure.h"
#include "script/setting_names.h"

#include <array>
#include <nlohmann/json.hpp>
#include <ostream>

namespace zb {

namespace {

using Context = ScriptContext;
using Call = CommandCall;

constexpr auto kNoBlock = BlockKind::None;

void expectProperty(Context& context, const Call& call) {
    const Place place = context.place(call.word(0));
    const auto value = context.eyes.property(place, call.word(1));
    if (!value) {
        std::vector<std::string> names;
        for (const auto& [name, unused] : context.eyes.properties(place))
            names.push_back(name);
        throw ScriptFailure("a property " + call.word(1) + " of " + call.word(0), join(names, ", "));
    }
    const std::string found = printValue(*value);
    if (found != call.word(2))
        throw ScriptFailure(call.word(0) + " " + call.word(1) + " " + quote(call.word(2)), quote(found));
}

std::string describe(const Box& box) {
    return quote(box.text) + " " + quote(box.title) + " " + std::string(iconName(box.icon)) + " " +
           join(buttonNames(box.buttons), ",");
}

void expectBox(Context& context, const Call& call) {
    const auto box = context.prepared.lookAtBox();
    const std::string wanted = "a box " + quote(call.word(0));
    if (!box)
        throw ScriptFailure(wanted, "no box that was not looked at yet");
    const bool same = matchText(call.word(0), box->text) &&
                      (call.count() < 2 || matchText(call.word(1), box->title)) &&
                      (call.count() < 3 || call.word(2) == iconName(box->icon)) &&
                      (call.count() < 4 || call.word(3) == join(buttonNames(box->buttons), ","));
    if (same)
        return;
    std::string more;
    for (std::size_t i = 1; i < call.count(); ++i)
        more += " " + (i == 1 ? quote(call.word(i)) : call.word(i));
    throw ScriptFailure(wanted + more, describe(*box));
}

void expectNoBox(Context& context, const Call& /*call*/) {
    if (const auto box = context.prepared.lookAtBox())
        throw ScriptFailure("no box", describe(*box));
    if (const auto unused = context.prepared.firstUnused())
        throw ScriptFailure("all that was said to be used",
                            unused->what + " of line " + std::to_string(unused->line));
}

void expectDialog(Context& context, const Call& call) {
    const auto dialog = context.prepared.lookAtDialog();
    if (!dialog)
        throw ScriptFailure("a file dialog " + quote(call.word(0)),
                            "no file dialog that was not looked at yet");
    const std::array<std::string, 4> found{dialog->title, dialog->filter, dialog->extension, dialog->folder};
    for (std::size_t i = 0; i < call.count(); ++i) {
        if (call.word(i) != found[i])
            throw ScriptFailure("a file dialog with " + quote(call.word(i)),
                                quote(found[i]) + " in " + quote(dialog->title));
    }
}

void expectLines(const Call& call, const std::optional<std::vector<std::string>>& found, const char* what) {
    if (!found)
        throw ScriptFailure(what, call.word(0));
    if (!matchLines(call.command.lines, *found))
        throw ScriptFailure(describeMismatch(call.command.lines, *found));
}

void expectTree(Context& context, const Call& call) {
    expectLines(call, context.eyes.treeLines(context.place(call.word(0))), "a tree or a node");
}

void expectRows(Context& context, const Call& call) {
    expectLines(call, context.eyes.rowLines(context.place(call.word(0))), "a list, a combo or a toolbar");
}

void expectSetting(Context& context, const Call& call) {
    checkSettingName(call.word(0));
    const std::string found = context.program.setting(call.word(0));
    if (found != call.word(1))
        throw ScriptFailure("the setting " + call.word(0) + " " + quote(call.word(1)), quote(found));
}

nlohmann::ordered_json jsonOf(const PropertyValue& value) {
    return std::visit([](const auto& held) { return nlohmann::ordered_json(held); }, value);
}

void showPlace(Context& context, const std::string& address, const Place& place) {
    nlohmann::ordered_json line{{"address", address}};
    for (const auto& [name, value] : context.eyes.properties(place))
        line[name] = jsonOf(value);
    context.out << printableJson(line.dump(-1, ' ', false, nlohmann::json::error_handler_t::replace)) << '\n';
}

void showNodes(Context& context, const std::string& address, Place place) {
    const NodeTree& nodes = static_cast<const Tree&>(*place.target.control).nodes();
    place.kind = Place::Kind::Node;
    for (int index = 1; Node* node = nodes.at(index); ++index) {
        place.target.node = node;
        showPlace(context, address + "[#" + std::to_string(index) + "]", place);
    }
}

void showRows(Context& context, const std::string& address, Place place) {
    int position = 0;
    place.kind = Place::Kind::Row;
    for (ListRow* row : static_cast<const List&>(*place.target.control).shown()) {
        place.target.row = row;
        showPlace(context, address + "[#" + std::to_string(++position) + "]", place);
    }
}

/// The place itself, and the controls of a window, the nodes of a tree or the rows of a list below it.
void show(Context& context, const Call& call) {
    const Place place = context.place(call.word(0));
    showPlace(context, call.word(0), place);
    if (place.kind == Place::Kind::Window) {
        for (Control* control : place.window->controls()) {
            const std::string address = call.word(0) + "." + control->name();
            showPlace(context, address, context.place(address));
        }
    } else if (place.kind == Place::Kind::Control) {
        if (place.target.control->kind() == Control::Kind::Tree)
            showNodes(context, call.word(0), place);
        else if (place.target.control->kind() == Control::Kind::List)
            showRows(context, call.word(0), place);
    }
}

constexpr std::array kCommands{
    CommandRule{"expect", 3, 3, kNoBlock, expectProperty},
    CommandRule{"expectbox", 1, 4, kNoBlock, expectBox},
    CommandRule{"expectnobox", 0, 0, kNoBlock, expectNoBox},
    CommandRule{"expectdialog", 1, 4, kNoBlock, expectDialog},
    CommandRule{"expecttree", 1, 1, BlockKind::Lines, expectTree},
    CommandRule{"expectrows", 1, 1, BlockKind::Lines, expectRows},
    CommandRule{"expectsetting", 2, 2, kNoBlock, expectSetting},
    CommandRule{"show", 1, 1, kNoBlock, show},
};

} // namespace

std::span<const CommandRule> lookingCommands() {
    return kCommands;
}

} // namespace zb
