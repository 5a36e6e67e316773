#pragma once

#include "console/verb.h"

#include <string>
#include <vector>

namespace zb {

/// `zbc script FILE...`
class ScriptVerb final : public Verb {
public:
    std::string name() const override { return "script"; }
    std::string summary() const override { return "Run scripts that work the program as a person does"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    std::vector<std::string> files_;
};

} // namespace zb
