#pragma once

#include <iosfwd>

namespace zb {

class Sequences;
class TRModelStore;

// The transaction model of a project and its sequences, on standard output.

/// Received messages with their items and statements, sent ones with their data, then the sequences. Empty
/// groups are left out.
void printTransactions(std::ostream& out, const TRModelStore& model, const Sequences& sequences);
/// One JSON object per message and sequence.
void printTransactionsAsJson(std::ostream& out, const TRModelStore& model, const Sequences& sequences);

} // namespace zb
