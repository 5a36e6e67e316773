#pragma once

#include "controls/combo.h"
#include "controls/simple_controls.h"
#include "controls/text_field.h"
#include "rehearsal/recording.h"

#include <functional>
#include <optional>
#include <string>

namespace zb {

class Window;

/// Which recording is rehearsed, and what it does not say itself.
class RecordingBar {
public:
    /// The stores become part of the window.
    explicit RecordingBar(Window& window);

    /// The path without blanks at its ends; empty for none.
    std::string path() const;
    /// Nothing, with a notice, when the port is no port.
    std::optional<rehearsal::RecordingOptions> options() const;

    /// The recording is to be read, or to be read again.
    std::function<void()> onRead;
    /// The folder in which the user chooses a file while the field names none.
    std::function<std::string()> folder;

    Label lblRecording;
    TextField txtRecording;
    Button cmdChooseRecording;
    Button cmdReadRecording;
    Label lblSide;
    Combo cboSide;
    Label lblPort;
    TextField txtPort;

private:
    void choose();

    Window& window_;
};

} // namespace zb
