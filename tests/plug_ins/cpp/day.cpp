// A day of the etcher and its host, over a loopback. Every transaction, item and answer is compared.
#include "equipment/ZeltoPlugIn/cpp/plug_in.h"
#include "host/ZeltoPlugIn/cpp/plug_in.h"

#include <cstdio>

namespace {

int faults = 0;

template<typename Found, typename Wanted>
void expect(const char* what, const Found& found, const Wanted& wanted) {
    if (found == wanted)
        return;
    ++faults;
    std::printf("%s is wrong\n", what);
}

/// What both sides write down.
struct Diary {
    std::string text;
    void add(const std::string& line) { text += line + "\n"; }
    void expectLines(const char* what, const std::string& wanted) {
        if (text != wanted) {
            ++faults;
            std::printf("%s: found\n%swanted\n%s", what, text.c_str(), wanted.c_str());
        }
        text.clear();
    }
};

std::string lineOf(const char* side, const zelto::Report& report) {
    std::string line = std::string(side) + " " + report.transaction;
    for (const zelto::TransactionItem& item : report.items)
        line += std::string(" ") + item.name + "=" + (item.isMissing ? "?" : item.text);
    return line;
}

std::string nameOf(const zelto::Header& header) {
    return "S" + std::to_string(header.stream) + "F" + std::to_string(header.function);
}

class Tool final : public etcher::PlugIn {
public:
    Tool(zelto::Transport& transport, Diary& diary) : PlugIn(transport), diary_(diary) {}

protected:
    void onReceived(const zelto::Report& report) override { diary_.add(lineOf("tool", report)); }
    void onDeviation(const zelto::Deviation& deviation) override {
        diary_.add("tool deviates " + deviation.transaction);
    }
    void onUnknown(const zelto::Header& header, std::string_view, zelto::Finding finding) override {
        diary_.add("tool unknown " + nameOf(header) + " " + std::to_string(static_cast<int>(finding)));
    }
    void onTimeout(const zelto::Header& primary) override { diary_.add("tool timeout " + nameOf(primary)); }
    void onAborted(const zelto::Header& primary) override { diary_.add("tool aborted " + nameOf(primary)); }
    void onStrayReply(const zelto::Header& header) override { diary_.add("tool stray " + nameOf(header)); }

    void onGoOnLine(const etcher::transactions::GoOnLine& received) override {
        sendOnLineAccepted(received.header);
    }
    void onSelectLot(const etcher::transactions::SelectLot& received) override {
        expect("the port as a number", received.port().number(), std::optional<double>(1));
        expect("the lot", received.lot().text, "L260321A07      ");
        sendCommandDone(received.header);
    }
    void onSelectLotElsewhere(const etcher::transactions::SelectLotElsewhere& received) override {
        sendPortRefused(received.header);
    }
    void onStartLot(const etcher::transactions::StartLot& received) override {
        sendCommandDone(received.header);
    }

private:
    Diary& diary_;
};

class Host final : public etcherHost::PlugIn {
public:
    Host(zelto::Transport& transport, Diary& diary) : PlugIn(transport), diary_(diary) {}

protected:
    void onReceived(const zelto::Report& report) override { diary_.add(lineOf("host", report)); }
    void onDeviation(const zelto::Deviation& deviation) override {
        diary_.add("host deviates " + deviation.transaction);
    }
    void onError(const zelto::Header& error, const std::optional<zelto::Header>& primary) override {
        diary_.add("host error " + nameOf(error) + " " + (primary ? nameOf(*primary) : "?"));
    }

    void onOpenLink(const etcherHost::transactions::OpenLink& received) override {
        expect("the model", received.message.mdln, "ZE3000");
        sendLinkAccepted(received.header);
    }
    void onStepDone(const etcherHost::transactions::StepDone& received) override {
        sendEventTaken(received.header);
    }
    void onLotDone(const etcherHost::transactions::LotDone& received) override {
        expect("the number of wafers", received.message.wafercount.size(), 2U);
        expect("an etch depth", received.message.wafercount.at(0).stepcount.at(1).etchdepth, 118.9F);
        sendEventTaken(received.header);
    }
    void onRfAlarm(const etcherHost::transactions::RfAlarm& received) override {
        sendAlarmTaken(received.header);
    }

private:
    Diary& diary_;
};

/// Both sides, connected.
struct Line {
    zelto::Loopback loopback;
    Diary diary;
    Tool tool{loopback.equipment(), diary};
    Host host{loopback.host(), diary};
};

void startUp(Line& line) {
    line.tool.sendOpenLink();
    line.loopback.deliver();
    line.host.sendGoOnLine();
    line.loopback.deliver();
    line.diary.expectLines("the start",
                           "host OpenLink\ntool LinkAccepted\ntool GoOnLine\nhost OnLineAccepted\n");
}

void processLot(Line& line) {
    line.host.sendSelectLot();
    line.loopback.deliver();
    line.host.sendStartLot();
    line.loopback.deliver();
    line.tool.sendStepDone();
    line.loopback.deliver();
    line.tool.sendLotDone();
    line.loopback.deliver();
    line.diary.expectLines(
        "the lot",
        "tool SelectLot PORT=1 LOT=L260321A07       RECIPE=OXIDE_MAIN_ETCH_A12\nhost CommandDone\n"
        "tool StartLot\nhost CommandDone\nhost StepDone\ntool EventTaken\nhost LotDone\ntool EventTaken\n");
    expect("the sequences under way", line.tool.sequences().underWay().size(), 0U);
    expect("the replies that are open", line.tool.openTransactions() + line.host.openTransactions(), 0U);
}

void conditions(Line& line) {
    auto lot = etcherHost::transactions::SelectLot::message();
    lot.cpval3 = 3;
    line.host.sendSelectLotElsewhere(lot);
    line.loopback.deliver();
    line.diary.expectLines("another port", "tool SelectLotElsewhere PORT=3\nhost CommandDone\n");

    auto constants = etcherHost::transactions::LimitPressure::message();
    constants.eccount.resize(2);
    constants.eccount[0].ecid = 2002;
    constants.eccount[0].ecv = 1.5F;
    constants.eccount[1].ecid = 2004;
    line.host.sendLimitPressure(constants);
    constants.eccount[1].ecid = 2005;
    line.host.sendSetConstants(constants);
    auto events = etcherHost::transactions::WatchEvents::message();
    line.host.sendWatchEvents(events);
    events.ceid = {4010};
    line.host.sendWatchEvents(events);
    events.ceed = false;
    line.host.sendWatchEvents(events);
    line.loopback.deliver();
    line.diary.expectLines("conditions", "tool LimitPressure LIMIT=2\ntool SetConstants GROUP=Temperature\n"
                                         "tool WatchEvents MODE=All\ntool WatchEvents MODE=Lots\n"
                                         "tool WatchEvents MODE=Silent\n");
}

/// A lot that is done without a step: the sequence goes on after it.
void outOfOrder(Line& line) {
    line.host.sendSelectLot();
    line.loopback.deliver();
    line.tool.sendLotDone();
    line.loopback.deliver();
    line.diary.expectLines("out of order",
                           "tool SelectLot PORT=1 LOT=L260321A07       RECIPE=OXIDE_MAIN_ETCH_A12\n"
                           "host CommandDone\ntool deviates LotDone\nhost deviates LotDone\nhost LotDone\n"
                           "tool EventTaken\n");
    expect("the sequences under way", line.tool.sequences().underWay().size(), 0U);
}

void oddMessages(Line& line) {
    zelto::Transport& host = line.loopback.host();
    host.send({0, 64, 1, true, 900}, {});
    host.send({0, 1, 77, true, 901}, {});
    host.send({0, 1, 17, true, 902}, std::string{'\x21', '\x01', '\x00'});
    host.send({7, 1, 17, true, 903}, {});
    host.send({0, 1, 18, false, 904}, {});
    line.loopback.deliver();
    line.diary.expectLines("odd messages",
                           "tool unknown S64F1 2\ntool unknown S1F77 3\ntool unknown S1F17 4\n"
                           "tool unknown S1F17 2\ntool stray S1F18\ntool unknown S1F18 3\n"
                           "host error S9F3 S64F1\nhost error S9F5 S1F77\nhost error S9F7 S1F17\n"
                           "host error S9F1 S1F17\nhost error S9F5 S1F18\n");
}

void automaticReply(Line& line) {
    std::string sent;
    line.loopback.onSend = [&sent](bool toHost, const zelto::Header& header, std::string_view) {
        sent += (toHost ? " >" : " <") + nameOf(header) + "/" + std::to_string(header.system);
    };
    line.loopback.host().send({0, 1, 1, true, 950}, {});
    line.loopback.deliver();
    expect("the automatic reply", sent, " <S1F1/950 >S1F2/950");
    line.loopback.onSend = nullptr;
    line.diary.text.clear();
}

void missingReplies() {
    zelto::Loopback loopback; // nobody is at the other end
    Diary diary;
    Tool tool(loopback.equipment(), diary);
    const std::uint32_t system = tool.sendRfAlarm();
    tool.checkTimeouts();
    expect("the open reply", tool.openTransactions(), 1U);
    loopback.host().send({0, 5, 0, false, system}, {});
    loopback.deliver();
    tool.sendRfAlarm();
    tool.checkTimeouts(zelto::Link::Clock::now() + std::chrono::minutes(1));
    expect("the replies that are still open", tool.openTransactions(), 0U);
    diary.expectLines("missing replies", "tool aborted S5F1\ntool deviates RfAlarm\ntool timeout S5F1\n");
}

} // namespace

int main() {
    Line line;
    startUp(line);
    processLot(line);
    conditions(line);
    outOfOrder(line);
    oddMessages(line);
    automaticReply(line);
    missingReplies();
    std::printf("%d faults\n", faults);
    return faults == 0 ? 0 : 1;
}
