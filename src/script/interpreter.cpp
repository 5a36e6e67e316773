#include "script/interpreter.h"

#include "controls/window.h"
#include "script/command_rules.h"

#include <exception>

namespace zb {

namespace {

std::string countOf(const CommandRule& rule) {
    if (rule.least == rule.most)
        return std::to_string(rule.least);
    return std::to_string(rule.least) + " to " + std::to_string(rule.most);
}

} // namespace

void ScriptInterpreter::run(const std::vector<ScriptCommand>& script) {
    for (const ScriptCommand& command : script) {
        context_.prepared.startCounting();
        runCommand(command);
    }
    if (const auto unused = context_.prepared.firstUnused()) {
        ScriptFailure failure(unused->what + " to be used before the script ends",
                              "nothing that asked for it");
        failure.setLine(unused->line);
        throw failure;
    }
}

void ScriptInterpreter::runDuring(Window& window) {
    if (!window.visible())
        return;
    const ScriptCommand& during = context_.prepared.takeDuring(window.name());
    for (const ScriptCommand& command : during.commands) {
        if (!window.visible()) {
            ScriptFailure failure("no command after the hiding of " + window.name(), command.name());
            failure.setLine(command.line);
            keepFirst(failure);
            throw failure;
        }
        runCommand(command);
    }
    if (!window.visible())
        return;
    ScriptFailure failure(window.name() + " to be hidden at the end of its block", "it is visible");
    failure.setLine(during.endLine);
    keepFirst(failure);
    throw failure;
}

void ScriptInterpreter::runCommand(const ScriptCommand& command) {
    try {
        carryOut(command);
    } catch (ScriptFailure& failure) {
        failure.setLine(command.line);
        keepFirst(failure);
    } catch (const std::exception& fault) {
        ScriptFailure failure("the program to carry on", std::string("a fault in it: ") + fault.what());
        failure.setLine(command.line);
        keepFirst(failure);
    } catch (...) {
        ScriptFailure failure("the program to carry on", "a fault in it");
        failure.setLine(command.line);
        keepFirst(failure);
    }
    if (const auto& unforeseen = context_.prepared.failure(); unforeseen && !first_) {
        ScriptFailure failure(*unforeseen);
        failure.setLine(command.line);
        keepFirst(failure);
    }
    if (first_)
        throw ScriptFailure(*first_);
}

void ScriptInterpreter::carryOut(const ScriptCommand& command) {
    if (!command.fault.empty())
        throw ScriptFailure(command.fault);
    const CommandRule* rule = findCommand(command.name());
    if (rule == nullptr)
        throw ScriptFailure("a command", command.name());
    CommandCall call{command, {}};
    for (std::size_t i = 1; i < command.words.size(); ++i)
        call.words.push_back(replaceVariables(command.words[i], context_.folders));
    if (call.count() < rule->least || call.count() > rule->most)
        throw ScriptFailure(countOf(*rule) + " words after " + command.name(), std::to_string(call.count()));
    rule->run(context_, call);
}

void ScriptInterpreter::keepFirst(const ScriptFailure& failure) {
    if (!first_)
        first_ = failure;
}

} // namespace zb
