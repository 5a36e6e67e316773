import ${package}.PlugIn;
import zelto.*;

/** A plug-in at work: it prints what passes, over a loopback in place of a link. */
public final class Example extends PlugIn {
    private Example(Transport transport) {
        super(transport);
    }

    @Override
    protected void onReceived(Report report) {
        System.out.println(report.transaction() + " (" + report.message() + ")");
        for (TransactionItem item : report.items()) {
            System.out.println("    " + item.name() + " = " + (item.isMissing() ? "(missing)" : item.text()));
        }
    }

    @Override
    protected void onDeviation(Deviation deviation) {
        System.out.println("    " + deviation.transaction()
            + (deviation.restarts() ? " begins its sequence again" : " is out of sequence"));
    }

    @Override
    protected void onUnknown(Header header, byte[] body, Finding finding) {
        System.out.println("S" + header.stream() + "F" + header.function() + " is no transaction");
    }

    private static void printSent(boolean toHost, Header header, byte[] body) {
        System.out.println((toHost ? "H<-E " : "H->E ") + header + ", " + body.length + " bytes");
    }

    public static void main(String[] arguments) {
        Loopback loopback = new Loopback();
        loopback.setListener(Example::printSent);
        Example plugIn = new Example(loopback.${sideEnd}());
//% each sentTypes
//% if isPrimary
        plugIn.send${type}();
//% end
//% end
//% each examples
        loopback.${otherEnd}().send(
            new Header(0, ${stream}, ${function}, ${wait}, ${number}), new ${package}.messages.${type}().encode());
//% end
        loopback.deliver();
        System.out.println(plugIn.openTransactions() + " replies are open");
    }
}
