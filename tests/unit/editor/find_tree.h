#pragma once

#include "platform/tree/node_tree.h"

namespace zb {

/// Two messages. The numbers are the flat positions; 11 was added last and is the first of its siblings.
///    1 ""
///    2 "Are you there"
///    3 "S1F1: S1 F1 W H->E"
///      4 "L 2"
///       11 "U2 1 first 0"
///        5 "A 3 name 'AXB'"
///        6 "U1 1 limit 7"
///      7 "B 1 ack 0"
///    8 ""
///    9 "on line data"
///   10 "S1F2: S1 F2 H<-E"
inline void fill(NodeTree& tree) {
    tree.add(nullptr, Relation::Last, "");
    tree.add(nullptr, Relation::Last, "Are you there");
    Node& message = tree.add(nullptr, Relation::Last, "S1F1: S1 F1 W H->E");
    Node& list = tree.add(&message, Relation::Child, "L 2");
    Node& name = tree.add(&list, Relation::Child, "A 3 name 'AXB'");
    tree.add(&list, Relation::Child, "U1 1 limit 7");
    tree.add(&message, Relation::Child, "B 1 ack 0");
    tree.add(nullptr, Relation::Last, "");
    tree.add(nullptr, Relation::Last, "on line data");
    tree.add(nullptr, Relation::Last, "S1F2: S1 F2 H<-E");
    tree.add(&name, Relation::Previous, "U2 1 first 0");
}

} // namespace zb
