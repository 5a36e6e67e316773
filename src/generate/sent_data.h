#pragma once

#include "generate/message_names.h"
#include "generate/plug_in_model.h"
#include "generate/template_data.h"
#include "generate/value_literals.h"

#include <cstddef>
#include <string>
#include <vector>

namespace zb::generate {

/// Fills in what the template of one sent TR message takes: the values of its data block as assignments.
class SentData {
public:
    SentData(const Language& language, const ValueLiterals& literals, const KnownMessage& message,
             const MessageNames& names, TemplateData& data)
        : language_(language), literals_(literals), message_(message), names_(names), data_(data) {}

    void fill(const SentTransaction& sent, const std::string& type);

private:
    /// Where the walk is: a record, the next of its fields, and the expression that leads to it.
    struct Cursor {
        std::size_t record;
        std::size_t nextField;
        std::string prefix;
    };

    void assign(const std::vector<ItemTree>& items, const std::vector<ItemTree>& data, Cursor& cursor);
    void assignItem(const ItemTree& item, const ItemTree& data, Cursor& cursor);
    void assignMembers(const Field& field, const ItemTree& data, const std::string& place);
    void add(const std::string& line) { data_.add("assignments").set("assignment", line); }

    const Language& language_;
    const ValueLiterals& literals_;
    const KnownMessage& message_;
    const MessageNames& names_;
    TemplateData& data_;
    std::size_t members_ = 0;
};

} // namespace zb::generate
