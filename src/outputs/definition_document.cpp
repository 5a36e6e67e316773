#include "outputs/definition_document.h"

#include "messages/mdf_text.h"
#include "messages/message_store.h"

namespace zb {

std::string composeDefinitions(const SECSMessageStore& messages, DefinitionForm form) {
    return form == DefinitionForm::Mdf ? composeMdf(messages.getMessages()) : messages.allTexts();
}

} // namespace zb
