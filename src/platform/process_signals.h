#pragma once

namespace zb {

/// A file that grows past the limit of this process fails to be written, with an error that the writer sees
/// and cleans up after. Without this the system would end the process instead. For the start of a program.
void letLargeWritesFail();

} // namespace zb
