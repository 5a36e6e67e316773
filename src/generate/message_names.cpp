#include "generate/message_names.h"

#include "generate/safe_names.h"

namespace zb::generate {

MessageNames namesOf(const MessageShape& shape, const std::string& type, const Language& language) {
    MessageNames names;
    names.type = type;
    SafeNames types(language.reservedWords());
    types.reserve(type);
    for (std::size_t index = 0; index < shape.records().size(); ++index) {
        const RecordShape& record = shape.records()[index];
        names.records.push_back(index == shape.root() ? type : types.take(typeName(record.wish, "Part")));
        // A field must not have the name of the type around it, or of one beside it.
        SafeNames fields(language.reservedWords(), language.hasUpperFields() ? &types : nullptr);
        std::vector<std::string>& own = names.fields.emplace_back();
        for (const Field& field : record.fields)
            own.push_back(fields.take(language.hasUpperFields() ? typeName(field.wish, "Item")
                                                                : fieldName(field.wish, "item")));
    }
    return names;
}

} // namespace zb::generate
