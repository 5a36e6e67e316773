#pragma once

namespace zb {

/// Opens those of standard input, output and error that are closed, so that no file of the user gets their
/// numbers: what is printed would be written into it. Nothing can be written to them, and nothing read. For
/// the start of a program.
void fillStandardDescriptors();

} // namespace zb
