#include "controls/control.h"
#include "controls/desktop.h"
#include "controls/drag.h"
#include "script/command_rules.h"
#include "script/script_failure.h"

#include <array>
#include <charconv>
#include <limits>

namespace zb {

namespace {

using Context = ScriptContext;
using Call = CommandCall;

constexpr auto kNoBlock = BlockKind::None;

void expectDone(const Hands::Refusal& refusal, const Call& call) {
    if (!refusal.empty())
        throw ScriptFailure(call.command.name() + " to take place", refusal);
}

/// A control or a member of one, as the target of an action.
Target targetOf(const Context& context, const std::string& address) {
    const Place place = context.place(address);
    if (place.target.control == nullptr)
        throw ScriptFailure("a control to act on", address);
    return place.target;
}

/// A control as a whole: keys and text do not go to members.
Control& controlOf(const Context& context, const std::string& address) {
    const Place place = context.place(address);
    if (place.kind != Place::Kind::Control)
        throw ScriptFailure("a control as a whole", address);
    return *place.target.control;
}

Window& windowOf(const Context& context, const std::string& address) {
    const Place place = context.place(address);
    if (place.kind != Place::Kind::Window)
        throw ScriptFailure("a window", address);
    return *place.window;
}

void start(Context& context, const Call& call) {
    if (context.program.running())
        throw ScriptFailure("a program that is not running", "a running one");
    context.program.start(call.count() == 0 ? std::string() : call.word(0));
}

void close(Context& context, const Call& call) {
    expectDone(context.hands.close(windowOf(context, call.word(0))), call);
}

void click(Context& context, const Call& call) {
    expectDone(context.hands.click(targetOf(context, call.word(0))), call);
}

void controlClick(Context& context, const Call& call) {
    expectDone(context.hands.controlClick(targetOf(context, call.word(0))), call);
}

void rightClick(Context& context, const Call& call) {
    expectDone(context.hands.rightClick(targetOf(context, call.word(0))), call);
}

void doubleClick(Context& context, const Call& call) {
    expectDone(context.hands.doubleClick(targetOf(context, call.word(0))), call);
}

void dismiss(Context& context, const Call& call) {
    expectDone(context.hands.dismiss(), call);
}

void focus(Context& context, const Call& call) {
    const Place place = context.place(call.word(0));
    if (place.kind == Place::Kind::Window)
        expectDone(context.hands.activate(*place.window), call);
    else
        expectDone(context.hands.focus(controlOf(context, call.word(0))), call);
}

void type(Context& context, const Call& call) {
    expectDone(context.hands.type(controlOf(context, call.word(0)), call.word(1)), call);
}

void key(Context& context, const Call& call) {
    const std::string& text = call.word(1);
    KeyEvent event;
    const auto read = std::from_chars(text.data(), text.data() + text.size(), event.code);
    if (read.ec != std::errc() || read.ptr != text.data() + text.size() || event.code < 1 || event.code > 255)
        throw ScriptFailure("a virtual key code from 1 to 255", text);
    if (call.count() == 3) {
        if (call.word(2) != "shift")
            throw ScriptFailure("\"shift\" or nothing", call.word(2));
        event.shift = kShiftKey;
    }
    expectDone(context.hands.key(controlOf(context, call.word(0)), event), call);
}

void paste(Context& context, const Call& call) {
    expectDone(context.hands.paste(controlOf(context, call.word(0)), call.word(1)), call);
}

void choose(Context& context, const Call& call) {
    expectDone(context.hands.choose(controlOf(context, call.word(0)), call.word(1)), call);
}

void drag(Context& context, const Call& call) {
    const Target from = targetOf(context, call.word(0));
    expectDone(context.hands.drag(from, targetOf(context, call.word(1))), call);
}

void drop(Context& context, const Call& call) {
    expectDone(context.hands.drop(DragData{call.word(0), nullptr}, targetOf(context, call.word(1))), call);
}

void answer(Context& context, const Call& call) {
    const auto said = answerOf(call.word(0));
    if (!said || *said == Answer::OK)
        throw ScriptFailure("Yes, No or Cancel", call.word(0));
    context.prepared.sayAnswer(call.command.line, *said);
}

void pick(Context& context, const Call& call) {
    context.prepared.sayPick(call.command.line, call.word(0));
}

void during(Context& context, const Call& call) {
    context.prepared.sayDuring(call.word(0), call.command);
}

constexpr std::array kCommands{
    CommandRule{"start", 0, 1, kNoBlock, start},
    CommandRule{"close", 1, 1, kNoBlock, close},
    CommandRule{"click", 1, 1, kNoBlock, click},
    CommandRule{"ctrlclick", 1, 1, kNoBlock, controlClick},
    CommandRule{"rightclick", 1, 1, kNoBlock, rightClick},
    CommandRule{"doubleclick", 1, 1, kNoBlock, doubleClick},
    CommandRule{"dismiss", 0, 0, kNoBlock, dismiss},
    CommandRule{"focus", 1, 1, kNoBlock, focus},
    CommandRule{"type", 2, 2, kNoBlock, type},
    CommandRule{"key", 2, 3, kNoBlock, key},
    CommandRule{"paste", 2, 2, kNoBlock, paste},
    CommandRule{"choose", 2, 2, kNoBlock, choose},
    CommandRule{"drag", 2, 2, kNoBlock, drag},
    CommandRule{"drop", 2, 2, kNoBlock, drop},
    CommandRule{"answer", 1, 1, kNoBlock, answer},
    CommandRule{"pick", 1, 1, kNoBlock, pick},
    CommandRule{"during", 1, 1, BlockKind::Commands, during},
};

} // namespace

std::span<const CommandRule> actingCommands() {
    return kCommands;
}

} // namespace zb
