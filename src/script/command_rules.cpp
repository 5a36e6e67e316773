#include "script/command_rules.h"

namespace zb {

const CommandRule* findCommand(std::string_view name) {
    for (const auto commands :
         {actingCommands(), lookingCommands(), fileLookingCommands(), preparingCommands()}) {
        for (const CommandRule& rule : commands) {
            if (rule.name == name)
                return &rule;
        }
    }
    return nullptr;
}

BlockKind blockOfCommand(std::string_view name) {
    const CommandRule* rule = findCommand(name);
    return rule == nullptr ? BlockKind::None : rule->block;
}

} // namespace zb
