#ifndef ZELTO_TRANSACTION_H
#define ZELTO_TRANSACTION_H

#include "header.h"
#include "value.h"

#include <array>
#include <span>

namespace zelto {

/// An item of a transaction: a name and the value that it has in one message.
struct TransactionItem {
    const char* name = "";
    std::string text;
    bool isMissing = true; ///< the message has no such value

    TransactionItem() = default;
    explicit TransactionItem(const char* itemName) : name(itemName) {}
    TransactionItem(const char* itemName, std::string value)
        : name(itemName), text(std::move(value)), isMissing(false) {}
    TransactionItem(const char* itemName, const Value& value)
        : name(itemName), text(value.text()), isMissing(value.isMissing()) {}

    /// Nothing for a text that is no number.
    std::optional<double> number() const {
        double value = 0;
        const auto result = std::from_chars(text.data(), text.data() + text.size(), value);
        if (result.ec != std::errc() || result.ptr != text.data() + text.size())
            return std::nullopt;
        return value;
    }
};

/// A received message in words, for logs and for whatever treats all transactions alike. It is valid only
/// within the handler.
struct Report {
    const Header& header;
    const char* message;
    const char* transaction;
    std::span<const TransactionItem> items;
    bool isReported; ///< the transaction is to be reported
};

} // namespace zelto

#endif
