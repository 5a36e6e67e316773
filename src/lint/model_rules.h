#pragma once

namespace zb {

struct ModelContext;
class Report;

// Rules of TR messages among each other, and of sequences.

void checkReachable(const ModelContext& context, Report& report);
void checkDefaultFirst(const ModelContext& context, Report& report);
void checkReplyOrder(const ModelContext& context, Report& report);
void checkSequenceNamesDiffer(const ModelContext& context, Report& report);
void checkSequenceNamesFree(const ModelContext& context, Report& report);

} // namespace zb
