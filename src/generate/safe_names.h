#pragma once

#include <string>
#include <string_view>
#include <unordered_set>
#include <vector>

namespace zb::generate {

/// "PortRefused" from "PORT_REFUSED", "Svid" from "SVID": ASCII letters and digits, the first an upper-case
/// letter; words of capitals only are lowered. A text without letters and digits gives `fallback`. At most
/// 100 characters, since some become names of files.
std::string typeName(std::string_view text, std::string_view fallback);
/// The same with a lower-case first letter.
std::string fieldName(std::string_view text, std::string_view fallback);

/// A name with its capitals as small letters.
std::string lowered(std::string name);

/// The names of one scope of a program. Each is given once; names that differ only in case count as the same,
/// since some of them become names of files.
class SafeNames {
public:
    /// Names that are taken already.
    explicit SafeNames(const std::unordered_set<std::string>& reserved) : reserved_(&reserved) {}

    /// The name, or the first of name2, name3, ... that is free.
    std::string take(const std::string& name);
    void reserve(std::string_view name);

private:
    const std::unordered_set<std::string>* reserved_; // exact
    std::unordered_set<std::string> taken_;           // lower-cased
};

} // namespace zb::generate
