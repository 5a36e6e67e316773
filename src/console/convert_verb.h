#pragma once

#include "console/verb.h"
#include "messages/library_store.h"

#include <string>
#include <vector>

namespace zb {

/// `zbc convert IN OUT [--messages S1F13,S6F11]`
class ConvertVerb final : public Verb {
public:
    std::string name() const override { return "convert"; }
    std::string summary() const override { return "Turn messages from one file format into another"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    int write(const SECSLibraryStore::Records& records, ConsoleStreams streams) const;

    std::string in_;
    std::string out_;
    std::vector<std::string> selection_;
};

} // namespace zb
