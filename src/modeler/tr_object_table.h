#pragma once

#include <string_view>

namespace zb {

class List;
class TRModelStore;

/// Refills the table for a node of the trees: under the name of a root the messages of that direction, under
/// any other name the items of that message, and none for a name that is not in the model.
void fillTRObjectTable(List& table, const TRModelStore* model, std::string_view name);

} // namespace zb
