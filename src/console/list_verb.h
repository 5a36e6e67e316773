#pragma once

#include "console/verb.h"

#include <string>

namespace zb {

/// `zbc list FILE|gem|semi [--json] [--transactions]`
class ListVerb final : public Verb {
public:
    std::string name() const override { return "list"; }
    std::string summary() const override { return "List the messages of a project or library"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    int listTransactions(ConsoleStreams streams) const;

    std::string source_;
    bool json_ = false;
    bool transactions_ = false;
};

} // namespace zb
