#pragma once

#include <map>
#include <string_view>
#include <vector>

// The published layouts of SECS-II messages and the formats of their data items, as the tables layouts.tsv
// and items.tsv beside this header hold them. All texts are views of data of the program, which last as long
// as it runs.
namespace zb {

/// What is published of one message.
struct PublishedLayout {
    enum class Reply { Yes, Optional, No };

    int stream = 0;
    int function = 0;
    std::string_view title;     ///< "Are You There Request"
    std::string_view direction; ///< "H->E", "H<-E" or "H<->E"
    Reply reply = Reply::No;    ///< whether the sender may have a reply
    /// The structures that the message can have, the usual one first. A structure is the name of a data item,
    /// "L[A, B]" for a list of these parts, "L*[A]" for a list that repeats its part, or "-" for no data.
    std::vector<std::string_view> forms;
};

/// All published messages in the order of stream and function.
std::vector<PublishedLayout> publishedLayouts();

/// What is published of a data item.
struct PublishedItem {
    /// The formats that it may have, as "A" or "U4"; "L" where it may be a list, "X" where it may have any
    /// format.
    std::vector<std::string_view> formats;
    std::string_view meaning; ///< "Alarm identifier"
    /// The largest number of values, for a text of characters; 0 when nothing is published.
    int longest = 0;
    /// Each value or range of values with its meaning: "0 accepted", "64-255 own code", for a text the text
    /// itself. No other value is allowed; without codes any is.
    std::vector<std::string_view> codes;
};

/// By the name of each data item.
using PublishedItems = std::map<std::string_view, PublishedItem>;
PublishedItems publishedItems();

/// By the name of each data item its formats.
using PublishedFormats = std::map<std::string_view, std::vector<std::string_view>>;
PublishedFormats publishedFormats();

} // namespace zb
