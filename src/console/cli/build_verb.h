#pragma once

#include "console/cli/verb.h"

#include <string>

namespace zb {

/// `zbc build PROJECT.zbp [--smd|--mdf] [--out DIR]`
class BuildVerb final : public Verb {
public:
    std::string name() const override { return "build"; }
    std::string summary() const override { return "Build the SMD or MDF file of a project"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    bool isMdfWanted() const;

    std::string project_;
    std::string folder_;
    bool smd_ = false;
    bool mdf_ = false;
};

} // namespace zb
