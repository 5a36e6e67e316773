import etcher.messages.SelectRecipe;
import etcherhost.messages.NewEquipmentConstantSend;
import java.util.ArrayList;
import java.util.List;
import java.util.Optional;
import java.util.OptionalDouble;
import zelto.*;

/** A day of the etcher and its host, over a loopback. Every transaction, item and answer is compared. */
public final class Day {
    private static final List<String> DIARY = new ArrayList<>();
    private static int faults = 0;

    private Day() {
    }

    private static void expect(String what, Object found, Object wanted) {
        if (!found.equals(wanted)) {
            ++faults;
            System.out.println(what + " is " + found + ", not " + wanted);
        }
    }

    private static void expectLines(String what, String... wanted) {
        expect(what, String.join("\n", DIARY), String.join("\n", wanted));
        DIARY.clear();
    }

    private static void note(String side, Report report) {
        StringBuilder line = new StringBuilder(side + " " + report.transaction());
        for (TransactionItem item : report.items()) {
            line.append(' ').append(item.name()).append('=').append(item.isMissing() ? "?" : item.text());
        }
        DIARY.add(line.toString());
    }

    private static String nameOf(Header header) {
        return "S" + header.stream() + "F" + header.function();
    }

    private static final class Tool extends etcher.PlugIn {
        Tool(Transport transport) {
            super(transport);
        }

        @Override
        protected void onReceived(Report report) {
            note("tool", report);
        }

        @Override
        protected void onDeviation(Deviation deviation) {
            DIARY.add("tool deviates " + deviation.transaction());
        }

        @Override
        protected void onUnknown(Header header, byte[] body, Finding finding) {
            DIARY.add("tool unknown " + nameOf(header) + " " + finding.ordinal());
        }

        @Override
        protected void onTimeout(Header primary) {
            DIARY.add("tool timeout " + nameOf(primary));
        }

        @Override
        protected void onAborted(Header primary) {
            DIARY.add("tool aborted " + nameOf(primary));
        }

        @Override
        protected void onStrayReply(Header header) {
            DIARY.add("tool stray " + nameOf(header));
        }

        @Override
        protected void onGoOnLine(etcher.transactions.GoOnLine received) {
            sendOnLineAccepted(received.header);
        }

        @Override
        protected void onSelectLot(etcher.transactions.SelectLot received) {
            expect("the port", received.port().number(), OptionalDouble.of(1));
            expect("the lot", received.lot().text(), "L260321A07      ");
            sendCommandDone(received.header);
        }

        @Override
        protected void onSelectLotElsewhere(etcher.transactions.SelectLotElsewhere received) {
            sendPortRefused(received.header);
        }

        @Override
        protected void onStartLot(etcher.transactions.StartLot received) {
            sendCommandDone(received.header);
        }
    }

    private static final class Host extends etcherhost.PlugIn {
        Host(Transport transport) {
            super(transport);
        }

        @Override
        protected void onReceived(Report report) {
            note("host", report);
        }

        @Override
        protected void onDeviation(Deviation deviation) {
            DIARY.add("host deviates " + deviation.transaction());
        }

        @Override
        protected void onError(Header error, Optional<Header> primary) {
            DIARY.add("host error " + nameOf(error) + " " + primary.map(Day::nameOf).orElse("?"));
        }

        @Override
        protected void onOpenLink(etcherhost.transactions.OpenLink received) {
            expect("the model", received.message.mdln, "ZE3000");
            sendLinkAccepted(received.header);
        }

        @Override
        protected void onStepDone(etcherhost.transactions.StepDone received) {
            sendEventTaken(received.header);
        }

        @Override
        protected void onLotDone(etcherhost.transactions.LotDone received) {
            expect("the wafers", received.message.wafercount.size(), 2);
            expect("a depth", received.message.wafercount.get(0).stepcount.get(1).etchdepth, 118.9F);
            sendEventTaken(received.header);
        }
    }

    private static final Loopback LOOPBACK = new Loopback();
    private static final Tool TOOL = new Tool(LOOPBACK.equipment());
    private static final Host HOST = new Host(LOOPBACK.host());

    private static void startUp() {
        TOOL.sendOpenLink();
        LOOPBACK.deliver();
        HOST.sendGoOnLine();
        LOOPBACK.deliver();
        expectLines("the start", "host OpenLink", "tool LinkAccepted", "tool GoOnLine", "host OnLineAccepted");
    }

    private static void processLot() {
        HOST.sendSelectLot();
        LOOPBACK.deliver();
        HOST.sendStartLot();
        LOOPBACK.deliver();
        TOOL.sendStepDone();
        LOOPBACK.deliver();
        TOOL.sendLotDone();
        LOOPBACK.deliver();
        expectLines("the lot",
            "tool SelectLot PORT=1 LOT=L260321A07       RECIPE=OXIDE_MAIN_ETCH_A12", "host CommandDone", "tool StartLot",
            "host CommandDone", "host StepDone", "tool EventTaken", "host LotDone", "tool EventTaken");
        expect("the sequences under way", TOOL.sequences().underWay().size(), 0);
        expect("the replies that are open", TOOL.openTransactions() + HOST.openTransactions(), 0);
    }

    private static void conditions() {
        SelectRecipe own = new SelectRecipe();
        expect("a message", SelectRecipe.decode(own.encode()).map(SelectRecipe::toSml), Optional.of(own.toSml()));
        var lot = etcherhost.transactions.SelectLot.message();
        lot.cpval3 = 3;
        HOST.sendSelectLotElsewhere(lot);
        NewEquipmentConstantSend constants = etcherhost.transactions.LimitPressure.message();
        constants.eccount.clear();
        Lists.add(constants.eccount, new NewEquipmentConstantSend.EccountEntry()).ecid = 2002;
        Lists.add(constants.eccount, new NewEquipmentConstantSend.EccountEntry()).ecid = 2004;
        HOST.sendLimitPressure(constants);
        constants.eccount.get(1).ecid = 2005;
        HOST.sendSetConstants(constants);
        LOOPBACK.deliver();
        expectLines("conditions", "tool SelectLotElsewhere PORT=3", "tool LimitPressure LIMIT=2",
            "tool SetConstants GROUP=Temperature", "host CommandDone");
    }

    /** A lot that is done without a step: the sequence goes on after it. */
    private static void outOfOrder() {
        HOST.sendSelectLot();
        LOOPBACK.deliver();
        TOOL.sendLotDone();
        LOOPBACK.deliver();
        expectLines("out of order",
            "tool SelectLot PORT=1 LOT=L260321A07       RECIPE=OXIDE_MAIN_ETCH_A12", "host CommandDone",
            "tool deviates LotDone", "host deviates LotDone", "host LotDone", "tool EventTaken");
        expect("the sequences under way", TOOL.sequences().underWay().size(), 0);
    }

    private static void oddMessages() {
        Transport host = LOOPBACK.host();
        byte[] none = {};
        host.send(new Header(0, 64, 1, true, 900), none);
        host.send(new Header(0, 1, 77, true, 901), none);
        host.send(new Header(0, 1, 17, true, 902), new byte[] {0x21, 1, 0});
        host.send(new Header(7, 1, 17, true, 903), none);
        host.send(new Header(0, 1, 18, false, 904), none);
        LOOPBACK.deliver();
        expectLines("odd messages", "tool unknown S64F1 2", "tool unknown S1F77 3", "tool unknown S1F17 4",
            "tool unknown S1F17 2", "tool stray S1F18", "tool unknown S1F18 3", "host error S9F3 S64F1",
            "host error S9F5 S1F77", "host error S9F7 S1F17", "host error S9F1 S1F17", "host error S9F5 S1F18");
        LOOPBACK.setListener((toHost, header, body) -> DIARY.add((toHost ? ">" : "<") + nameOf(header)));
        host.send(new Header(0, 1, 1, true, 950), none);
        LOOPBACK.deliver();
        LOOPBACK.setListener((toHost, header, body) -> { });
        expect("the automatic reply", DIARY.subList(0, 2), List.of("<S1F1", ">S1F2"));
        DIARY.clear();
    }

    private static void missingReplies() {
        Loopback loopback = new Loopback(); // nobody is at the other end
        Tool tool = new Tool(loopback.equipment());
        int system = tool.sendRfAlarm();
        tool.checkTimeouts();
        expect("the open reply", tool.openTransactions(), 1);
        loopback.host().send(new Header(0, 5, 0, false, system), new byte[0]);
        loopback.deliver();
        tool.sendRfAlarm();
        tool.checkTimeouts(System.nanoTime() + 60_000_000_000L);
        expect("the replies that are still open", tool.openTransactions(), 0);
        expectLines("missing replies", "tool aborted S5F1", "tool deviates RfAlarm", "tool timeout S5F1");
    }

    public static void main(String[] arguments) {
        startUp();
        processLot();
        conditions();
        outOfOrder();
        oddMessages();
        missingReplies();
        System.out.println(faults + " faults");
        System.exit(faults == 0 ? 0 : 1);
    }
}
