// Writes the recordings of the examples into a folder: write_recordings FOLDER.
#include "support/etcher_days.h"

#include <filesystem>
#include <fstream>
#include <iostream>

int main(int count, char** arguments) {
    using namespace zb::test;
    if (count != 2) {
        std::cerr << "usage: write_recordings FOLDER\n";
        return 2;
    }
    const std::filesystem::path folder = arguments[1];
    const auto write = [&folder](const char* name, const std::string& bytes) {
        std::ofstream(folder / name, std::ios::binary) << bytes;
    };
    write("regular.log", smlLog(regularDay()));
    write("regular.hex", hexLog(regularDay()));
    write("regular.pcap", capture(regularDay()));
    write("odd.log", smlLog(oddDay()));
    write("odd.hex", hexLog(oddDay()));
    write("odd.pcap", capture(oddDay()));
    return 0;
}
