#pragma once

#include <string_view>

namespace zb {

class List;
class TRModelStore;

/// Fills the table anew with what a node of the trees stands for: under the name of a root the messages of
/// that direction, under any other name the items of that message, none for a name that is not in the model.
void fillTRObjectTable(List& table, const TRModelStore* model, std::string_view name);

} // namespace zb
