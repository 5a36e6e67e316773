#pragma once

#include "console/verb.h"

#include <string>
#include <vector>

namespace zb {

/// `zbc add PROJECT.zbp LIBRARY NAME...`
class AddVerb final : public Verb {
public:
    std::string name() const override { return "add"; }
    std::string summary() const override { return "Put messages of a library into a project"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    std::string project_;
    std::string library_;
    std::vector<std::string> names_;
};

} // namespace zb
