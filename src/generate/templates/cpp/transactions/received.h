#pragma once

#include "../messages/${message}.h"
#include "../zelto/transaction.h"

namespace ${package}::transactions {

/// Received by ${head}, ${comment}
struct ${type} {
    static constexpr const char* kName = ${nameLiteral};
    /// Whether the transaction is to be reported.
    static constexpr bool kIsReported = ${report};

    zelto::Header header;
    messages::${message} message;
    /// The items of the transaction, in the order of the model.
    std::array<zelto::TransactionItem, ${itemCount}> items;
//% each items

    /// ${itemComment}
    const zelto::TransactionItem& ${item}() const { return items[${itemIndex}]; }
//% end

    ${type}(const zelto::Header& ownHeader, messages::${message} ownMessage)
        : header(ownHeader), message(std::move(ownMessage)) {
//% each items
        items[${itemIndex}] = ${compute}(message);
//% end
    }

    /// Whether a message is this transaction, as far as its items tell.
//% if hasCondition
    static bool applies(const messages::${message}& message) {
//% else
    static bool applies(const messages::${message}&) {
//% end
        return ${condition};
    }

private:
//% each values
    /// ${address}
//% if isRead
    static zelto::Value ${function}(const messages::${message}& message) {
//% else
    static zelto::Value ${function}(const messages::${message}&) {
//% end
//% if isFound
//% each steps
//% if isLast
        return zelto::valueAt(${list}, ${index});
//% else
        const auto* ${member} = zelto::at(${list}, ${index});
        if (${member} == nullptr)
            return {};
//% end
//% end
//% if isList
        return zelto::Value::ofList();
//% end
//% if found
        return zelto::Value(${found});
//% end
//% else
        return {};
//% end
    }
//% end
//% each items
//% if isRead
    static zelto::TransactionItem ${compute}(const messages::${message}& message) {
//% else
    static zelto::TransactionItem ${compute}(const messages::${message}&) {
//% end
//% each lines
${line}
//% end
//% if isOpen
//% if hasSource
        const zelto::Value source = ${source};
        if (!source.isMissing())
            return zelto::TransactionItem(${nameLiteral}, source);
//% end
//% if hasAbsolute
        return zelto::TransactionItem(${nameLiteral}, ${absolute});
//% else
        return zelto::TransactionItem(${nameLiteral});
//% end
//% end
    }
//% end
};

} // namespace ${package}::transactions
