#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
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
    /// Names that are taken already; those of another scope, too, when there is one. It must outlive this.
    explicit SafeNames(const std::unordered_set<std::string>& reserved, const SafeNames* around = nullptr)
        : reserved_(&reserved), around_(around) {}

    /// The name, or the first of name2, name3, ... that is free.
    std::string take(const std::string& name);
    void reserve(std::string_view name);

private:
    bool isFree(const std::string& name) const;

    const std::unordered_set<std::string>* reserved_; // exact
    const SafeNames* around_;
    std::unordered_set<std::string> taken_; // lower-cased
    /// The number to try next for a name: all smaller ones are taken.
    std::unordered_map<std::string, std::size_t> next_;
};

} // namespace zb::generate
