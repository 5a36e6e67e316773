#pragma once

#include <iosfwd>

namespace zb {

class Sequences;
class TRModelStore;

// The transaction model of a project and its sequences, on standard output.

/// Received messages with their items and statements, sent ones with their data, then the sequences; one
/// group below the other, empty ones left out.
void printTransactions(std::ostream& out, const TRModelStore& model, const Sequences& sequences);
/// One JSON object a message and a sequence.
void printTransactionsAsJson(std::ostream& out, const TRModelStore& model, const Sequences& sequences);

} // namespace zb
