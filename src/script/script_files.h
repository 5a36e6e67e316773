#pragma once

#include "platform/code_page.h"

#include <filesystem>
#include <string>
#include <string_view>

// The files that a script names. Every function throws ScriptFailure when the system refuses.
namespace zb {

std::string readFileBytes(const std::string& path);
/// Whatever encoding the file is written in.
std::string readFileText(const std::string& path, const CodePage& codePage);
/// Replaces the file, or makes it with the folders above it.
void writeFileBytes(const std::string& path, std::string_view bytes);

/// The text in the encoding that the bytes of a file are in, without a mark. A file that is neither UTF-16
/// nor UTF-8 is in the code page.
std::string encodeLike(std::string_view bytes, std::string_view text, const CodePage& codePage);
/// The bytes that one character takes at least in that encoding.
std::size_t unitLike(std::string_view bytes);

} // namespace zb
