"""The replaying program in C++."""
import re

TOOL = """
class Tool{number} final : public {package}::PlugIn {{
public:
    using PlugIn::PlugIn;
    std::string line;

protected:
    void onReceived(const zelto::Report& report) override {{ line = lineOf(report); }}
    void onUnknown(const zelto::Header&, std::string_view, zelto::Finding finding) override {{
        line = finding == zelto::Finding::NoTransaction ? "no transaction" : "no message";
    }}
{handlers}}};
"""
HANDLER = """    void {handler}(const {package}::transactions::{type}& received) override {{
        line += "\\tbytes=" + hexOf(received.message.encode());
    }}
"""
CASE = """        case {number}:
            line = replay(tool{number}, *loopbacks[{number}], Side::{side}, bytes);
            break;
"""
PROGRAM = """{includes}
#include <cstdio>
#include <iostream>
#include <memory>

namespace {{

using zelto::Side;

std::string hexOf(std::string_view bytes) {{
    std::string hex;
    for (const char byte : bytes) {{
        hex += "0123456789ABCDEF"[static_cast<unsigned char>(byte) >> 4];
        hex += "0123456789ABCDEF"[byte & 15];
    }}
    return hex;
}}

std::string bytesOf(const std::string& hex) {{
    std::string bytes;
    for (std::size_t at = 0; at + 1 < hex.size(); at += 2)
        bytes += static_cast<char>(std::stoi(hex.substr(at, 2), nullptr, 16));
    return bytes;
}}

std::string lineOf(const zelto::Report& report) {{
    std::string line = std::string(report.message) + "\\t" + report.transaction;
    for (const zelto::TransactionItem& item : report.items)
        line += std::string("\\t") + item.name + "=" + (item.isMissing ? "(missing)" : ":" + hexOf(item.text));
    return line;
}}

template<typename Tool>
std::string replay(Tool& tool, zelto::Loopback& loopback, Side side, const std::string& bytes) {{
    const auto header = zelto::Header::fromBytes(bytes);
    tool.line.clear();
    (side == Side::Host ? loopback.equipment() : loopback.host()).send(*header, bytes.substr(10));
    loopback.deliver();
    return tool.line;
}}
{tools}
}} // namespace

int main() {{
    std::vector<std::unique_ptr<zelto::Loopback>> loopbacks;
    for (int number = 0; number < {count}; ++number)
        loopbacks.push_back(std::make_unique<zelto::Loopback>());
{objects}    int number = 0;
    for (std::string hex; std::cin >> number >> hex;) {{
        const std::string bytes = bytesOf(hex);
        std::string line;
        switch (number) {{
{cases}        default:
            return 1;
        }}
        std::cout << line << '\\n';
    }}
    return 0;
}}
"""


def package(folder):
    return re.search(r"^namespace (\w+) \{", (folder / "plug_in.h").read_text(), re.M)[1]


def handlers(folder):
    return re.findall(r"virtual void (on(\w+))\(const transactions::", (folder / "plug_in.h").read_text())


def source(projects):
    """The text of the program for projects (folder, side)."""
    tools = cases = objects = ""
    for number, (folder, side) in enumerate(projects):
        name = package(folder)
        own = "".join(HANDLER.format(handler=handler, package=name, type=kind) for handler, kind in handlers(folder))
        tools += TOOL.format(number=number, package=name, handlers=own)
        cases += CASE.format(number=number, side=side)
        objects += (f"    Tool{number} tool{number}(loopbacks[{number}]->{side.lower()}());\n"
                    f"    tool{number}.setDeviceId(1);\n")
    includes = "".join(f'#include "{folder.name}/plug_in.cpp"\n' for folder, _ in projects)
    return PROGRAM.format(includes=includes, tools=tools, cases=cases, objects=objects, count=len(projects))


def build(work, projects, run, compiler):
    (work / "replay.cpp").write_text(source(projects))
    run([compiler, "-std=c++20", "-O0", "-Wall", "-Wextra", "-Werror", "-o", "replay", "replay.cpp"], work)
    return ["./replay"]
