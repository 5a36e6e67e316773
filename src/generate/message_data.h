#pragma once

#include "generate/message_names.h"
#include "generate/plug_in_model.h"
#include "generate/template_data.h"
#include "generate/value_literals.h"

namespace zb::generate {

/// Fills in what the template of a message takes.
class MessageData {
public:
    MessageData(const Language& language, const ValueLiterals& literals)
        : language_(language), literals_(literals) {}

    void fill(TemplateData& data, const KnownMessage& message, const MessageNames& names) const;

private:
    void fillRecord(TemplateData& data, const RecordShape& record, std::size_t index,
                    const MessageNames& names) const;
    void fillField(TemplateData& data, const Field& field, const std::string& name,
                   const MessageNames& names) const;
    void fillStep(TemplateData& data, const Step& step, const RecordShape& record,
                  const std::vector<std::string>& fields, const MessageNames& names) const;
    void fillValue(TemplateData& data, const Field& field, const std::string& name) const;
    std::string typeOf(const ItemTree& item) const;
    std::string boxedTypeOf(const ItemTree& item) const;

    const Language& language_;
    const ValueLiterals& literals_;
};

/// The name of an item's format in generated code.
std::string formatName(const ItemTree& item);
/// "S2F41 W" of a message.
std::string headOf(const SECSMessageRecord& record);

} // namespace zb::generate
