#include "fuzz/any_user.h"

#include "platform/text_file.h"
#include "platform/tree/node_walk.h"

#include <array>

namespace zb::fuzz {

namespace {

constexpr std::string_view kProject =
    "\r\n###[PROJECT INFORMATION]\r\nProjectType=2\r\n## [EDIT SMD]\r\n* Are you there\r\n"
    "Ask: S1 F1 W H->E.\r\n* Report\r\nReport: S6 F11 W H<-E\r\n    L 3\r\n        U4 1 DATAID 0\r\n"
    "        A 20V LOTID 'x' [K]\r\n        L 1V groups\r\n            L 2\r\n                U2 3 SLOTS 1 2 3\r\n"
    "                BOOLEAN 1 DOOR True.\r\n* Answer\r\nAnswer: S6 F12 H->E\r\n    B 1 ACK 0.\r\n";
constexpr std::string_view kDamaged =
    "###[PROJECT INFORMATION]\r\nProjectType=x\r\n## [EDIT SMD]\r\nstray\r\nA: Sx Fy\r\n    L 2\r\n        X 3\r\n"
    "  U2 99999999999999999999 n 0\r\nA: S1 F1\r\n    A -5 'x\r\n## [FOREIGN]\r\nline\r\n"
    "###[TRANSACTION MODEL] 1\r\n## [TR MESSAGE] M\r\nTRItem I\r\nElement 1 x\r\nEndTRItem\r\nEndTRMessage\r\n"
    "###[SEQUENCE TABLE]\r\nrow\r\n";
constexpr std::array kFiles{"Line.zbp", "Damaged.zbp", "list.sml", "list.smd", "missing.zbp"};

constexpr std::array kTexts{"",     "1",    "2",   "129",      "-1",     "x:y",  "a b",   "'",
                            "1e5",  "S1F1", "A",   "0",        "3",      "True", "F",     ".",
                            "#1",   "#2",   "L",   "U4",       "Name",   "Dim",  "S1",    "C1",
                            " C3 ", "1.",   "> .", "\xC3\xA4", "999999", "[K]",  "1 2 3", "Report"};

/// What leads out of the folder of the user.
bool leadsElsewhere(const Control& control) {
    return control.name() == "txtLocation" || control.name() == "drvProject" ||
           control.name() == "dirProject";
}

std::string faultOf(const NodeTree& tree) {
    std::size_t count = 0;
    for (const Node* root = tree.firstRoot(); root != nullptr; root = root->next()) {
        for (const Node* node = root; node != nullptr; node = nextBelow(*node, *root)) {
            ++count;
            if (tree.at(node->index()) != node)
                return "a node is not at its position";
            if (!node->key().empty() && tree.find(node->key()) != node)
                return "a node is not found by its Key";
            if (node->next() != nullptr && node->next()->previous() != node)
                return "a node does not lead back";
            if (node->child() != nullptr && node->child()->parent() != node)
                return "a node is not below its parent";
        }
    }
    return count == tree.count() ? "" : "not all nodes can be reached";
}

} // namespace

AnyUser::AnyUser(std::span<const unsigned char> bytes)
    : bytes_(bytes),
      application_(*this, settings_, files_, *this, {folder_.path().string(), (folder_ / "state").string()}),
      hands_(application_.desktop) {
    test::writeFile(folder_ / "Line.zbp", encodeUtf16(kProject));
    test::writeFile(folder_ / "Damaged.zbp", encodeUtf16(kDamaged));
    test::writeFile(folder_ / "list.sml", "M: S1F1 W\r\n<L[2] <U4 1> // ID\r\n<A \"x\">>.\r\nS1F2.\r\n<");
    test::writeFile(folder_ / "list.smd",
                    "* text\r\nM: S1 F1 W H->E\r\n    L 1\r\n        U4 1 ID 1.\r\nN: S9 F1 H->E.");
}

void AnyUser::act() {
    application_.start((folder_ / kFiles[pick(2)]).string());
    while (!isOver()) {
        if (Window* window = anyWindow())
            actIn(*window);
    }
}

std::string AnyUser::fault() {
    for (const Window* window : application_.desktop.windows()) {
        for (Control* control : window->controls()) {
            if (control->kind() != Control::Kind::Tree)
                continue;
            if (const std::string fault = faultOf(static_cast<Tree*>(control)->nodes()); !fault.empty())
                return control->name() + ": " + fault;
        }
    }
    return {};
}

std::size_t AnyUser::pick(std::size_t count) {
    std::size_t number = 0;
    for (std::size_t reach = 1; reach < count && !bytes_.empty(); reach *= 256) {
        number = number * 256 + bytes_.front();
        bytes_ = bytes_.subspan(1);
    }
    return number % count;
}

std::string AnyUser::text() {
    return kTexts.at(pick(kTexts.size()));
}

// A tree that doubles again and again would only show that memory is finite.
bool AnyUser::isTooLarge() {
    constexpr std::size_t kMostNodes = 5'000;
    return application_.frmSECSEditor.liveTree().count() > kMostNodes;
}

Window* AnyUser::anyWindow() {
    std::vector<Window*> open;
    for (Window* window : application_.desktop.windows()) {
        if (application_.desktop.acceptsInput(*window))
            open.push_back(window);
    }
    return open.empty() ? nullptr : open[pick(open.size())];
}

void AnyUser::actIn(Window& window) {
    constexpr std::size_t kSeldom = 64;
    const std::size_t choice = pick(kSeldom);
    if (choice == 0)
        hands_.close(window);
    else if (choice == 1)
        hands_.dismiss();
    else if (choice == 2)
        hands_.activate(window);
    else if (!window.controls().empty()) {
        Control& control = *window.controls()[pick(window.controls().size())];
        if (!leadsElsewhere(control) && actOn(control).empty())
            ++done_;
    }
}

UserHands::Refusal AnyUser::actOn(Control& control) {
    switch (pick(12)) {
    case 0:
        return hands_.rightClick(anyPartOf(control));
    case 1:
        return hands_.doubleClick(anyPartOf(control));
    case 2:
        return hands_.controlClick(anyPartOf(control));
    case 3:
        return hands_.key(control, {static_cast<int>(pick(256)), static_cast<int>(pick(8))});
    case 4: {
        Window& window = control.window();
        Control& target = *window.controls()[pick(window.controls().size())];
        return leadsElsewhere(target) ? "" : hands_.drag(anyPartOf(control), anyPartOf(target));
    }
    case 5:
        return hands_.drop({text(), nullptr}, anyPartOf(control));
    case 6:
    case 7:
        return enter(control);
    default:
        return hands_.click(anyPartOf(control));
    }
}

UserHands::Refusal AnyUser::enter(Control& control) {
    if (control.kind() == Control::Kind::Combo)
        return hands_.choose(control, "#" + std::to_string(pick(20)));
    if (control.kind() != Control::Kind::TextField)
        return hands_.focus(control);
    return pick(2) == 0 ? hands_.paste(control, text()) : hands_.type(control, text());
}

Target AnyUser::anyPartOf(Control& control) {
    Target target = Target::whole(control);
    if (control.kind() == Control::Kind::Tree) {
        NodeTree& nodes = static_cast<Tree&>(control).nodes();
        target.node = nodes.empty() ? nullptr : nodes.at(1 + static_cast<int>(pick(nodes.count())));
    } else if (control.kind() == Control::Kind::List) {
        const List& list = static_cast<List&>(control);
        if (!list.columns().empty() && pick(8) == 0)
            target.column = pick(list.columns().size());
        else if (list.count() > 0)
            target.row = list.rows()[pick(list.count())].get();
    } else if (control.kind() == Control::Kind::Toolbar) {
        auto& buttons = static_cast<Toolbar&>(control).buttons();
        target.button = buttons.empty() ? nullptr : &buttons[pick(buttons.size())];
    }
    return target;
}

Answer AnyUser::showBox(const Box& box) {
    if (box.buttons == BoxButtons::OK)
        return Answer::OK;
    constexpr std::array kAnswers{Answer::Yes, Answer::No, Answer::Cancel};
    return kAnswers.at(pick(box.buttons == BoxButtons::YesNo ? 2 : 3));
}

std::string AnyUser::pickFile(const FileDialog& /*dialog*/) {
    const std::size_t choice = pick(kFiles.size() + 1);
    return choice == kFiles.size() ? std::string() : (folder_ / kFiles.at(choice)).string();
}

void AnyUser::runModal(Window& window) {
    constexpr int kPatience = 30;
    ++modal_;
    for (int step = 0; step < kPatience && modal_ <= 3 && window.visible() && !isOver(); ++step)
        actIn(window);
    --modal_;
    if (window.visible())
        window.hide();
}

} // namespace zb::fuzz
