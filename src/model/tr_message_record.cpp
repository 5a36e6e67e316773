#include "model/tr_message_record.h"

#include "model/data_block_node.h"

namespace zb {

std::optional<XmlElement> TRMessageRecord::DataBlockNode() const {
    return dataBlock_ ? std::optional(dataBlockNodeOf(*dataBlock_)) : std::nullopt;
}

} // namespace zb
