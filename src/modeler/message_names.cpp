#include "modeler/message_names.h"

#include "model/reserved_words.h"
#include "platform/text.h"
#include "project/module_state.h"

#include <algorithm>

namespace zb {

namespace {

bool isLetter(char character) {
    return (character >= 'A' && character <= 'Z') || (character >= 'a' && character <= 'z');
}

bool isPartOfName(char character) {
    return isLetter(character) || (character >= '0' && character <= '9') || character == '_';
}

} // namespace

std::string faultOfTRMessageName(std::string_view name, const ModuleState& state, std::string_view renamed) {
    const std::string plain = trim(name);
    const std::string wanted = upper(plain);
    if (checkReservedWord(wanted))
        return std::string(name) + " is reserved word!";
    if (state.TRModelStore) {
        for (const auto& record : state.TRModelStore->TRMessages()) {
            if (upper(record->Name()) == wanted && (renamed.empty() || record->Name() != renamed))
                return record->Name() + " was already defined.";
        }
    }
    for (const SECSMessageRecord* message : state.SECSMessageStore->getMessages()) {
        if (upper(message->getName()) == wanted)
            return plain + " is used to SECS Message!";
    }
    return {};
}

std::string faultOfSequenceName(std::string_view name, const ModuleState& state) {
    if (name.empty() || !isLetter(name.front()) || !std::all_of(name.begin(), name.end(), isPartOfName))
        return "A name begins with a letter and consists of letters, digits and underscores.";
    if (state.SECSMessageStore->getByName(name) != nullptr)
        return std::string(name) + " was already used in SECSMessages!";
    if (!state.TRModelStore)
        return {};
    const auto& messages = state.TRModelStore->TRMessages();
    const bool used = std::any_of(messages.begin(), messages.end(),
                                  [&](const auto& record) { return upper(record->Name()) == upper(name); });
    return used ? std::string(name) + " was already used in TRMessages!" : std::string();
}

} // namespace zb
