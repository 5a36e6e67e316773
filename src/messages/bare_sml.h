#pragma once

#include "messages/message_record.h"

#include <string>
#include <vector>

namespace zb {

/// SML for readers that take the core of the language only.
struct BareSml {
    /// Lines end in CR LF; a blank line follows each message.
    std::string text;
    /// What the core cannot express, one sentence for each message concerned.
    std::vector<std::string> notes;
};

/// Heads `S1F1 W`, items `<U4 1>`, one on a line, texts between `"`, bytes as `0x0A`, booleans as `T` and
/// `F`: no names, counts or comments. An item of any type becomes a text, since there is no such type.
BareSml composeBareSml(const std::vector<const SECSMessageRecord*>& records);

} // namespace zb
