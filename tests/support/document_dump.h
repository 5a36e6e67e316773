#pragma once

#include <string>

namespace zb {

class Application;

namespace test {

// All that can be observed of a document of the program, as one text. Selections and fields are left out.
std::string dumpMessages(Application& application);
std::string dumpModel(Application& application);

} // namespace test
} // namespace zb
