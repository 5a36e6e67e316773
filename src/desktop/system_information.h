#pragma once

namespace zb {

/// Starts the system information tool of the platform; false when there is none.
bool startSystemInformation();

} // namespace zb
