#include "editor/value_notice.h"

#include "controls/desktop.h"
#include "messages/item_normalizer.h"
#include "messages/value_loss.h"
#include "platform/tree/node.h"

namespace zb {

void reportLoss(Desktop& desktop, const std::string& loss) {
    if (!loss.empty())
        desktop.post({loss, {}, "value"});
}

void normalizeAndReport(Desktop& desktop, Node& node, const SECSItemRecord& record,
                        const CodePage& codePage) {
    const std::string before = node.text();
    normalizeItem(node, record, codePage);
    if (node.text() != before)
        reportLoss(desktop, lostByCount(before, node.text()));
}

} // namespace zb
