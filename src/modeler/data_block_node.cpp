#include "modeler/tr_message_record.h"

namespace zb {

std::optional<XmlElement> TRMessageRecord::DataBlockNode() const {
    if (!dataBlock_)
        return std::nullopt;
    return XmlElement("DataBlock");
}

} // namespace zb
