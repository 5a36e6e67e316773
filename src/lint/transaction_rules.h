#pragma once

namespace zb {

struct TRMessageContext;
class Report;

// Rules of the conditions of a received TR message and of its items.

void checkConditionForms(const TRMessageContext& context, Report& report);
void checkConditionKinds(const TRMessageContext& context, Report& report);
void checkIndexes(const TRMessageContext& context, Report& report);

// Rules of the items of a received TR message.

void checkItemSources(const TRMessageContext& context, Report& report);
void checkStatementResults(const TRMessageContext& context, Report& report);
void checkStatementConditions(const TRMessageContext& context, Report& report);
void checkStatementColons(const TRMessageContext& context, Report& report);

// Rules of the data block of a sent TR message.

void checkBlockFit(const TRMessageContext& context, Report& report);
void checkBlockCodes(const TRMessageContext& context, Report& report);
void checkBlockRanges(const TRMessageContext& context, Report& report);
void checkBlockLengths(const TRMessageContext& context, Report& report);
void checkBlockKey(const TRMessageContext& context, Report& report);

} // namespace zb
