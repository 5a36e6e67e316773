#pragma once

#include "lint/layout_form.h"
#include "messages/libraries/published_layouts.h"

#include <map>
#include <optional>
#include <string_view>
#include <utility>

namespace zb {

/// The published layouts and data items, read once and looked up many times.
class PublishedStandard {
public:
    struct Message {
        PublishedLayout layout;
        std::vector<LayoutForm> forms;
    };

    PublishedStandard();

    /// Null for a message whose layout does not come with the program.
    const Message* message(int stream, int function) const;
    /// Null for an unknown name.
    const PublishedItem* item(std::string_view name) const;
    /// The known item that a name within a message means: "CEID2" is a second CEID. Empty for none.
    std::string_view itemOf(std::string_view name) const;

private:
    std::map<std::pair<int, int>, Message> messages_;
    PublishedItems items_;
};

/// Whether a stream or function is the user's own: streams 64 to 127 and functions 64 to 255.
bool isOwnMessage(int stream, int function);
/// Whether the standards define the message, though its layout may not come with the program: function 0 of
/// every stream aborts a transaction, and newer standards have added messages for carriers, jobs, subsystems
/// and recipes.
bool isAssigned(int stream, int function);
/// Whether the value is among the codes of the item.
bool isKnownCode(const PublishedItem& item, std::string_view value);
/// Whether the item may have the format.
bool mayHaveFormat(const PublishedItem& item, std::string_view format);

} // namespace zb
