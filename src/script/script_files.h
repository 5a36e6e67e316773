#pragma once

#include "platform/code_page.h"

#include <filesystem>
#include <string>
#include <string_view>

// The files of a script. Every function throws ScriptFailure when the system reports an error.
namespace zb {

std::string readFileBytes(const std::string& path);
/// In any encoding.
std::string readFileText(const std::string& path, const CodePage& codePage);
/// Replaces the file, or creates it with its parent folders.
void writeFileBytes(const std::string& path, std::string_view bytes);

/// The text in the encoding of the bytes of a file, without a mark. A file that is neither UTF-16 nor UTF-8
/// is in the code page.
std::string encodeLike(std::string_view bytes, std::string_view text, const CodePage& codePage);
/// The minimum number of bytes of a character in that encoding.
std::size_t unitLike(std::string_view bytes);

} // namespace zb
