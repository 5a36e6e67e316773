#pragma once

#include "console/verb.h"

#include <string>

namespace zb {

/// `zbc history PROJECT.zbp [--restore N]`
class HistoryVerb final : public Verb {
public:
    std::string name() const override { return "history"; }
    std::string summary() const override { return "List the kept versions of a project, or bring one back"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    std::string project_;
    int restore_ = 0;
};

} // namespace zb
