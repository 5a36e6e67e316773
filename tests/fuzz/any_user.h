#pragma once

#include "controls/screen.h"
#include "controls/user_hands.h"
#include "outputs/generator.h"
#include "platform/file_layer.h"
#include "platform/settings.h"
#include "shell/application.h"
#include "support/temporary_folder.h"

#include <cstddef>
#include <span>
#include <string>

namespace zb::fuzz {

/// A user who does anything that the windows allow, as the bytes say, in a separate program without a screen.
/// Everything that the user can write is in a folder of its own.
class AnyUser final : private Screen, private Generator {
public:
    explicit AnyUser(std::span<const unsigned char> bytes);

    /// Acts until the bytes are used up or the program has ended.
    void act();
    /// What is wrong with the trees of the windows; empty when they are whole.
    std::string fault();
    /// How many actions were possible.
    int done() const { return done_; }

private:
    Answer showBox(const Box& box) override;
    std::string pickFile(const FileDialog& dialog) override;
    void runModal(Window& window) override;
    void bringToFront(Window& /*window*/) override {}
    void openPopup(PopupMenu& /*menu*/) override {}
    std::string generate(const std::string& /*projectFile*/) override { return "done"; }

    /// A number below `count`, which is not 0; 0 once the bytes are used up.
    std::size_t pick(std::size_t count);
    std::string text();
    Window* anyWindow();
    void actIn(Window& window);
    UserHands::Refusal actOn(Control& control);
    UserHands::Refusal enter(Control& control);
    Target anyPartOf(Control& control);
    bool isOver() { return bytes_.empty() || application_.ended() || isTooLarge(); }
    bool isTooLarge();

    std::span<const unsigned char> bytes_;
    test::TemporaryFolder folder_;
    SettingsStore settings_ = SettingsStore::inMemory();
    SystemFileLayer files_;
    Application application_;
    UserHands hands_;
    int modal_ = 0; ///< how many modal windows are open
    int done_ = 0;
};

} // namespace zb::fuzz
