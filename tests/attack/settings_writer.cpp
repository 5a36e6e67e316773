// Writes settings as the program does, for the tests that kill it and let many write at once:
// settings_writer FOLDER NAME COUNT writes NAME0, NAME1, ... and prints each name when it was written.

#include "platform/process_signals.h"
#include "platform/settings.h"

#include <cstdlib>
#include <iostream>
#include <string>

int main(int argc, char** argv) {
    if (argc != 4) {
        std::cerr << "settings_writer FOLDER NAME COUNT\n";
        return 2;
    }
    zb::letLargeWritesFail();
    zb::SettingsStore settings(argv[1]);
    const int count = std::atoi(argv[3]);
    for (int number = 0; number < count; ++number) {
        const std::string name = argv[2] + std::to_string(number);
        settings.writeRegValue(zb::kSettingsKey, name, name);
        std::cout << name << std::endl;
    }
    return 0;
}
