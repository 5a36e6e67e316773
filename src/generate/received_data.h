#pragma once

#include "generate/message_names.h"
#include "generate/plug_in_model.h"
#include "generate/safe_names.h"
#include "generate/template_data.h"
#include "generate/value_literals.h"
#include "model/statement.h"

#include <map>
#include <string>
#include <vector>

namespace zb::generate {

/// Fills in what the template of one received TR message takes: its condition and its items as code.
class ReceivedData {
public:
    ReceivedData(const Language& language, const ValueLiterals& literals, const KnownMessage& message,
                 const MessageNames& names, TemplateData& data);

    void fill(const ReceivedTransaction& received, const std::string& type);

private:
    struct Branch {
        const std::vector<Statement>& statements;
        std::string indent;
    };

    /// The call that gives the value of a data item; its function is written once for each address.
    std::string valueOf(const DataItemAddress& address);
    void fillValue(TemplateData& data, const DataItemAddress& address) const;
    std::string expressionOf(const Condition& condition);
    std::string expressionOf(const Comparison& comparison);
    void fillItem(const TRItemRecord& item, std::size_t index);
    /// Whether one of the lines returns in any case.
    bool addLines(TemplateData& data, const std::string& itemName, const Branch& branch);
    bool addBranch(TemplateData& data, const std::string& itemName, const Statement& statement,
                   const std::string& indent);
    std::string itemOf(const std::string& wordName, const std::string& itemName,
                       const std::string& value) const;

    const Language& language_;
    const ValueLiterals& literals_;
    const KnownMessage& message_;
    const MessageNames& names_;
    TemplateData& data_;
    SafeNames members_;                             ///< the names in the type
    std::map<std::string, std::string> functionOf_; // by address
};

} // namespace zb::generate
