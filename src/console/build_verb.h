#pragma once

#include "console/verb.h"

#include <filesystem>
#include <string>

namespace zb {

class HeadlessProgram;
struct LoadedProject;

/// `zbc build PROJECT.zbp [--smd|--mdf] [--out DIR|--plugin]`
class BuildVerb final : public Verb {
public:
    std::string name() const override { return "build"; }
    std::string summary() const override { return "Build the SMD or MDF file and the TMD file of a project"; }
    std::string example() const override;
    void declare(CLI::App& app) override;
    int run(ConsoleStreams streams) override;

private:
    bool isMdfWanted() const;
    std::filesystem::path inFolder(const std::string& usualPath) const;
    int buildFiles(HeadlessProgram& program, LoadedProject& project, ConsoleStreams streams) const;
    int buildDefinitions(HeadlessProgram& program, LoadedProject& project, ConsoleStreams streams) const;
    int buildTransactions(HeadlessProgram& program, ConsoleStreams streams) const;
    int runGenerator(HeadlessProgram& program, ConsoleStreams streams) const;

    std::string project_;
    std::string folder_;
    bool smd_ = false;
    bool mdf_ = false;
    bool plugIn_ = false;
};

} // namespace zb
