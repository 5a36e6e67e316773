#pragma once

#include "console/verb.h"

#include <string>

namespace zb {

/// `zbc check PROJECT.zbp [--json] [--warnings]`
class CheckVerb final : public Verb {
public:
    std::string name() const override { return "check"; }
    std::string summary() const override {
        return "Report every fault of the messages and the transaction model";
    }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    std::string project_;
    bool json_ = false;
    bool warnings_ = false;
};

} // namespace zb
