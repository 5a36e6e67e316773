#include "document/sequence_chart.h"

#include "document/interface_facts.h"
#include "document/markup.h"
#include "platform/text.h"

namespace zb {

namespace {

constexpr std::size_t kWidth = 440;
constexpr std::size_t kHostX = 50;
constexpr std::size_t kEquipmentX = kWidth - kHostX;
constexpr std::size_t kTop = 40;
constexpr std::size_t kStep = 44;
constexpr std::size_t kLongestLabel = 40;

std::string number(std::size_t value) {
    return std::to_string(value);
}

/// A long name would leave the chart; the table of its message has the whole one.
std::string shortened(std::string_view text) {
    const std::u32string points = codePoints(text);
    return points.size() <= kLongestLabel ? std::string(text)
                                          : fromCodePoints(points.substr(0, kLongestLabel - 1)) + "\u2026";
}

std::string party(std::size_t x, const std::string& name, std::size_t bottom) {
    return "<text x=\"" + number(x) + "\" y=\"20\" class=\"party\">" + name + "</text><path d=\"M" +
           number(x) + " 28V" + number(bottom) + "\" class=\"life\"/>\n";
}

std::string arrow(const DocumentedStep& step, std::size_t y) {
    const std::size_t from = step.isToHost ? kEquipmentX : kHostX;
    const std::size_t to = step.isToHost ? kHostX : kEquipmentX;
    const std::size_t back = step.isToHost ? to + 9 : to - 9;
    return "<path d=\"M" + number(from) + " " + number(y) + "H" + number(to) +
           "\" class=\"line\"/><path d=\"M" + number(to) + " " + number(y) + "L" + number(back) + " " +
           number(y - 5) + "V" + number(y + 5) + "Z\" class=\"head\"/>";
}

std::string label(const DocumentedStep& step, std::size_t y) {
    std::string text = step.streamFunction.empty() ? "" : step.streamFunction + " ";
    text = "<text x=\"" + number(kWidth / 2) + "\" y=\"" + number(y - 7) + "\">" +
           markupText(shortened(text + step.transaction)) + "</text>";
    return step.message == std::string::npos
               ? text
               : "<a href=\"" + messageAnchor(step.message) + "\">" + text + "</a>";
}

} // namespace

std::string sequenceChart(const DocumentedSequence& sequence) {
    const std::size_t height = kTop + kStep * sequence.steps.size() + 24;
    std::string svg = "<svg xmlns=\"http://www.w3.org/2000/svg\" viewBox=\"0 0 " + number(kWidth) + " " +
                      number(height) + "\" role=\"img\">\n<title>" + markupText(sequence.name) + "</title>\n";
    svg += party(kHostX, "Host", height - 8) + party(kEquipmentX, "Equipment", height - 8);
    for (std::size_t at = 0; at < sequence.steps.size(); ++at) {
        const std::size_t y = kTop + kStep * (at + 1) - 8;
        svg += arrow(sequence.steps[at], y) + label(sequence.steps[at], y) + "\n";
    }
    return svg + "</svg>\n";
}

} // namespace zb
