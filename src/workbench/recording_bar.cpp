#include "workbench/recording_bar.h"

#include "controls/desktop.h"
#include "controls/window.h"
#include "platform/text.h"

#include <charconv>
#include <filesystem>

namespace zb {

namespace {

constexpr const char* kAutomatic = "Automatic";
constexpr const char* kHost = "Host";
constexpr const char* kEquipment = "Equipment";
constexpr int kHighestPort = 65535;

constexpr const char* kRecordings = "Recordings|*.log;*.txt;*.hex;*.sml;*.pcap;*.pcapng;*.cap|All files|*";

} // namespace

RecordingBar::RecordingBar(Window& window)
    : lblRecording(window, "lblRecording", "Recording:"), txtRecording(window, "txtRecording"),
      cmdChooseRecording(window, "cmdChooseRecording", "..."),
      cmdReadRecording(window, "cmdReadRecording", "&Open"), lblSide(window, "lblSide", "Recorded by:"),
      cboSide(window, "cboSide"), lblPort(window, "lblPort", "Port:"), txtPort(window, "txtPort"),
      window_(window) {
    txtRecording.setToolTip("A log of messages in SML or hexadecimal, or a capture *.pcap or *.pcapng");
    txtRecording.setAnswersEnter();
    cmdChooseRecording.setToolTip("Choose a recording");
    cmdReadRecording.setToolTip("Read the recording, or read it again (Enter in its field)");
    cboSide.setToolTip("The side of the program that wrote the log or opened the link");
    for (const char* side : {kAutomatic, kHost, kEquipment})
        cboSide.add(side);
    cboSide.setText(kAutomatic);
    txtPort.setToolTip("The TCP port of the passive side; without it, every connection with HSMS is read");
    txtPort.setAnswersEnter();
    const auto read = [this] { fire(onRead); };
    const auto readOnEnter = [read](KeyEvent key) {
        if (key.code == kKeyEnter)
            read();
    };
    txtRecording.onKeyUp = readOnEnter;
    txtPort.onKeyUp = readOnEnter;
    cmdReadRecording.onClick = read;
    cmdChooseRecording.onClick = [this] { choose(); };
    cboSide.onChoose = [this] {
        if (!path().empty())
            fire(onRead);
    };
    txtRecording.onChange = [this] { cmdReadRecording.setEnabled(!path().empty()); };
    cmdReadRecording.setEnabled(false);
}

std::string RecordingBar::path() const {
    return trim(txtRecording.text());
}

std::optional<rehearsal::RecordingOptions> RecordingBar::options() const {
    rehearsal::RecordingOptions options;
    if (cboSide.text() != kAutomatic)
        options.side = cboSide.text() == kHost ? Side::Host : Side::Equipment;
    const std::string port = trim(txtPort.text());
    if (port.empty())
        return options;
    int number = 0;
    const auto [end, fault] = std::from_chars(port.data(), port.data() + port.size(), number);
    if (fault != std::errc() || end != port.data() + port.size() || number < 1 || number > kHighestPort) {
        window_.desktop().post({"The port of a recording is a number from 1 to 65535"});
        return std::nullopt;
    }
    options.port = number;
    return options;
}

void RecordingBar::choose() {
    const std::string named = std::filesystem::path(path()).parent_path().string();
    const std::string file =
        window_.desktop().pickFile({"Open recording", kRecordings, "log", named.empty() ? folder() : named});
    if (file.empty())
        return;
    txtRecording.setText(file);
    fire(onRead);
}

} // namespace zb
