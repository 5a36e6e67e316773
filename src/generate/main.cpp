#include "generate/generator_program.h"
#include "platform/code_page.h"
#include "platform/locale.h"
#include "platform/printable.h"
#include "platform/process_signals.h"
#include "platform/setting_names.h"
#include "platform/settings.h"
#include "platform/standard_descriptors.h"
#include "platform/user_folders.h"

#include <exception>
#include <iostream>

int main(int argc, char** argv) {
    zb::fillStandardDescriptors();
    zb::letLargeWritesFail();
    try {
        const zb::SettingsStore settings(zb::settingsFolder());
        const zb::CodePage codePage =
            zb::chooseCodePage(settings.readRegValue(zb::kSettingsKey, zb::kAnsiCodePage), zb::localeName());
        return zb::generate::runGeneratorProgram({argv + 1, argv + argc}, settings, codePage, std::cout);
    } catch (const std::exception& fault) {
        std::cout << "ZeltoGenerator: " << zb::printable(fault.what()) << '\n';
        return 1;
    }
}
