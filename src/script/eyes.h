#pragma once

#include "script/program.h"

#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

namespace zb {

struct Place;

/// How a script reads the program.
class Eyes {
public:
    using Properties = std::vector<std::pair<std::string, PropertyValue>>;

    virtual ~Eyes() = default;
    /// All properties of a place, in order of display.
    virtual Properties properties(const Place& place) = 0;
    /// Nothing when the place has no such property.
    virtual std::optional<PropertyValue> property(const Place& place, std::string_view name) = 0;
    /// A tree, or the nodes below a node: one line per node, two blanks per level. Nothing for any other
    /// place.
    virtual std::optional<std::vector<std::string>> treeLines(const Place& place) = 0;
    /// The rows of a list or combo, the Keys of a toolbar. Nothing for a place without rows.
    virtual std::optional<std::vector<std::string>> rowLines(const Place& place) = 0;
};

/// Reads the stores of a program directly.
class StoreEyes final : public Eyes {
public:
    explicit StoreEyes(ScriptedProgram& program) : program_(program) {}

    Properties properties(const Place& place) override;
    std::optional<PropertyValue> property(const Place& place, std::string_view name) override;
    std::optional<std::vector<std::string>> treeLines(const Place& place) override;
    std::optional<std::vector<std::string>> rowLines(const Place& place) override;

private:
    ScriptedProgram& program_;
};

/// A property in the notation of scripts: numbers and flags as "3" and "true".
std::string printValue(const PropertyValue& value);

} // namespace zb
