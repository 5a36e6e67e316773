#include "support/etcher_days.h"

#include "messages/secs2/item_codec.h"
#include "messages/secs2/sml_data.h"
#include "rehearsal/recorded_message.h"
#include "support/capture_writer.h"

#include <array>
#include <cstdio>

namespace zb::test {

namespace {

constexpr std::int64_t kSecond = 1'000'000'000;
constexpr std::int64_t kMorning = 1'774'080'000 * kSecond; // 2026-03-21 08:00

constexpr const char* kStep =
    "<L <U4 0> <U4 4001> <L <L <U4 501> <L <U1 1> <U1 12> <A 'L260321A07-12   '> <U2 3> <I8 -184467>>>"
    " <L <U4 502> <L <F4 15.2> <U2 1800 450> <F4 3.5 1.2> <F4 40 10.5 0 200> <I2 -10 20> <F8 42.375>>>>>";
constexpr const char* kLot =
    "<L <U4 0> <U4 4010> <L <L <U4 510> <L <A 'L260321A07      '> <U8 1844674407> <I4 86400> <J 'NIGHT SHIFT 2'>"
    " <L <L <U1 1> <BOOLEAN T> <L <L <U1 1> <F4 352.4>> <L <U1 2> <F4 118.9>>> <A 'NORMAL'>>"
    " <L <U1 2> <BOOLEAN F> <L> <A 'NOT STARTED'>>>>>>>";

std::string selectLot(int port) {
    std::string slots;
    for (int slot = 0; slot < 25; ++slot)
        slots += slot < 24 ? " T" : " F";
    return "<L <A 'PP-SELECT'> <L <L <A 'PPID'> <A 'OXIDE_MAIN_ETCH_A12'>> <L <A 'LOTID'> <A 'L260321A07      '>>"
           " <L <A 'PORT'> <U1 " +
           std::to_string(port) + ">> <L <A 'SLOTS'> <BOOLEAN" + slots + ">>>>";
}

/// Writes a day message by message; each is a second after the one before.
class Day {
public:
    void control(bool toHost, std::uint8_t sType) {
        secs2::Header header;
        header.session = 0xFFFF;
        header.sType = sType;
        if (sType % 2 == 1)
            ++system_;
        header.system = system_;
        messages_.push_back({time_ += kSecond, toHost, header, {}});
    }
    void primary(bool toHost, std::uint8_t stream, std::uint8_t function, std::string sml) {
        ++system_;
        add(toHost, stream, function, true, std::move(sml));
    }
    void reply(std::string sml) {
        const secs2::Header primary = messages_.back().header;
        add(!messages_.back().toHost, primary.stream, static_cast<std::uint8_t>(primary.function + 1), false,
            std::move(sml));
    }
    void wait(std::int64_t seconds) { time_ += seconds * kSecond; }
    std::vector<DayMessage> take() { return std::move(messages_); }

private:
    void add(bool toHost, std::uint8_t stream, std::uint8_t function, bool wait, std::string sml) {
        secs2::Header header;
        header.session = 1;
        header.stream = stream;
        header.function = function;
        header.wait = wait;
        header.system = system_;
        messages_.push_back({time_ += kSecond, toHost, header, std::move(sml)});
    }

    std::vector<DayMessage> messages_;
    std::int64_t time_ = kMorning;
    std::uint32_t system_ = 0;
};

void startUp(Day& day) {
    day.control(false, 1);
    day.control(true, 2);
    day.primary(true, 1, 13, "<L <A 'ZE3000'> <A 'V04R21'>>");
    day.reply("<L <B 0> <L>>");
    day.primary(false, 1, 17, "");
    day.reply("<B 0>");
}

std::string dataOf(const DayMessage& message) {
    secs2::Items items;
    std::string data;
    if (!secs2::readSmlData(message.sml, items))
        secs2::encodeItems(items, data);
    return data;
}

std::string timeOf(const DayMessage& message) {
    std::string text = rehearsal::RecordedTime{message.time, true, false}.text();
    text[10] = ' ';
    return text;
}

} // namespace

std::vector<DayMessage> regularDay() {
    Day day;
    startUp(day);
    day.primary(false, 2, 15, "<L <L <U4 2004> <F4 62.5>>>");
    day.reply("<B 0>");
    day.primary(false, 2, 37, "<L <BOOLEAN T> <L <U4 4001> <U4 4010>>>");
    day.reply("<B 0>");
    day.primary(false, 2, 41, selectLot(1));
    day.reply("<L <B 0> <L>>");
    day.primary(false, 2, 41, "<L <A 'START'> <L>>");
    day.reply("<L <B 0> <L>>");
    day.wait(600);
    day.control(false, 5);
    day.control(true, 6);
    day.primary(true, 6, 11, kStep);
    day.reply("<B 0>");
    day.primary(true, 6, 11, kLot);
    day.reply("<B 0>");
    day.primary(true, 5, 1, "<L <B 132> <U4 3011> <A 'PM1 reflected RF power over limit'>>");
    day.reply("<B 0>");
    day.primary(true, 5, 1, "<L <B 4> <U4 3011> <A 'PM1 reflected RF power over limit'>>");
    day.reply("<B 0>");
    return day.take();
}

std::vector<DayMessage> oddDay() {
    Day day;
    startUp(day);
    day.primary(false, 2, 41, selectLot(7)); // another port
    day.reply("<L <B 3> <L <L <A 'PORT'> <B 2>>>>");
    day.primary(false, 2, 41, "<L <A 'STOP'> <L>>"); // a command that is not defined
    day.reply("<L <B 1> <L>>");
    day.primary(false, 2, 15, "<L <L <U4 2001> <A '62.5'>>>"); // a text instead of a number
    day.reply("<B 3>");
    day.primary(true, 6, 11, kStep); // without a lot
    day.reply("<B 0>");
    day.primary(false, 2, 99, ""); // not defined
    day.primary(true, 5, 1, "<L <B 132> <U4 3011> <A 'PM1 reflected RF power over limit'>>");
    day.wait(59);
    day.reply("<B 0>"); // too late
    day.wait(200);
    day.primary(true, 5, 1, "<L <B 132> <U4 3012> <A 'PM1 helium backside pressure low'>>"); // no reply
    return day.take();
}

std::string frameOf(const DayMessage& message) {
    std::string frame;
    secs2::appendFrame(frame, message.header, dataOf(message));
    return frame;
}

std::string smlLog(const std::vector<DayMessage>& day) {
    std::string log = "2026-03-21 07:59:58.000|Info|driver 2.4 starts, simulated tool\n";
    for (const DayMessage& message : day) {
        std::array<char, 32> system;
        std::snprintf(system.data(), system.size(), " [0x%08X] ",
                      static_cast<unsigned>(message.header.system));
        log += timeOf(message) + "|Trace|" + (message.toHost ? "-->" : "<--") + system.data();
        if (message.header.isControl()) {
            log.append(secs2::controlName(message.header.sType)).append("\n");
            continue;
        }
        log += "'S" + std::to_string(message.header.stream) + "F" + std::to_string(message.header.function) +
               (message.header.wait ? "' W\n" : "'\n");
        secs2::Items items;
        if (!secs2::readSmlData(message.sml, items))
            secs2::appendSmlData(log, items, 2);
        log += ".\n";
    }
    return log;
}

std::string hexLog(const std::vector<DayMessage>& day) {
    std::string log;
    for (const DayMessage& message : day) {
        log += timeOf(message) + (message.toHost ? " SEND" : " RECV");
        for (const char byte : frameOf(message)) {
            std::array<char, 8> digits;
            std::snprintf(digits.data(), digits.size(), " %02X", static_cast<unsigned char>(byte));
            log += digits.data();
        }
        log += '\n';
    }
    return log;
}

std::string capture(const std::vector<DayMessage>& day) {
    CaptureWriter writer;
    writer.setTime(kMorning);
    auto link = writer.open(49152, 5000);
    for (const DayMessage& message : day) {
        writer.setTime(message.time);
        writer.send(link, message.toHost ? 1 : 0, frameOf(message));
    }
    writer.close(link);
    return writer.bytes();
}

} // namespace zb::test
