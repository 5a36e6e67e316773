#pragma once

#include <string>
#include <string_view>
#include <vector>

// A strict reader of library text. It accepts only the canonical form, to the blank, so that it accepts only
// what the program itself would write.
namespace zb::test {

struct Item {
    std::string type;
    int count = 0;
    bool variable = false;
    std::string name;
    bool quoted = false;             // there was a text value between apostrophes
    std::vector<std::string> values; // a text is one value
    std::vector<Item> children;      // of a list
};

struct Message {
    std::string text; // all its lines, including banners, with CR LF
    std::string title;
    std::string name;
    int stream = 0;
    int function = 0;
    bool wait = false;
    bool autoReply = false;
    std::string direction;
    std::vector<Item> items;
};

// Reads all messages of `text`; throws std::runtime_error with the number of the line and its fault.
std::vector<Message> readSmdText(std::string_view text);

// The body in the notation of the layout table: "-", "SVID", "L[MDLN, SOFTREV]", "L*[SVID]".
std::string layoutOf(const Message& message);

} // namespace zb::test
