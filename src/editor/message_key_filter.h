#pragma once

#include "controls/key_filter.h"

#include <string_view>

// Which keys may enter a character into the fields of the message pane. `field` is the field's text before
// the key.
namespace zb {

/// txtStream and txtFunction: digits only.
KeyEffect filterNumberKey(KeyEvent key);
/// txtMsgName: letters, the underscore, and digits after the first character.
KeyEffect filterMessageNameKey(KeyEvent key, std::string_view field);
/// txtDescription: all but the colon and the asterisk, which mark heads and comments in project files.
KeyEffect filterDescriptionKey(KeyEvent key);

} // namespace zb
