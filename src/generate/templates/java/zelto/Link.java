package zelto;

import java.io.ByteArrayOutputStream;
import java.time.Duration;
import java.util.Arrays;
import java.util.List;
import java.util.Map;
import java.util.Optional;
import java.util.TreeMap;

/** One side of a link: what all plug-ins have in common. Handlers run inside {@link Transport#receive}. */
public abstract class Link {
    private static final byte[] HEADER_ITEM = {0x21, Header.SIZE};

    private final Transport transport;
    private final Side side;
    private final SequenceTracker sequences;
    private final Map<Integer, Open> open = new TreeMap<>();
    private Duration replyTimeout = Duration.ofSeconds(45);
    private int deviceId = 0;
    private int nextSystem = 1;
    /** The message whose handler runs; null when there is none. */
    private Header current;
    /** Its name, when the driver answers it by itself; otherwise null. */
    private String answerable;
    private boolean isAnswered;

    private record Open(Header primary, long since) {
    }

    @SuppressWarnings("this-escape") // nothing arrives before the plug-in is complete
    protected Link(Transport transport, Side side, List<Sequence> sequences) {
        this.transport = transport;
        this.side = side;
        this.sequences = new SequenceTracker(sequences);
        transport.setReceiver(this::receive);
    }

    public final void setDeviceId(int deviceId) {
        this.deviceId = deviceId;
    }

    /** The time that the other side has for a reply; 45 seconds at first. */
    public final void setReplyTimeout(Duration timeout) {
        replyTimeout = timeout;
    }

    /** Ends the transactions whose reply is overdue. To be called every second or so. */
    public final void checkTimeouts() {
        checkTimeouts(System.nanoTime());
    }

    /** The same at another time, in the nanoseconds of {@link System#nanoTime}. */
    public final void checkTimeouts(long now) {
        for (Open overdue : List.copyOf(open.values())) {
            if (now - overdue.since() >= replyTimeout.toNanos()) {
                open.remove(overdue.primary().system());
                sendError(9, overdue.primary());
                onTimeout(overdue.primary());
            }
        }
    }

    /** The number of primary messages that wait for their reply. */
    public final int openTransactions() {
        return open.size();
    }

    public final SequenceTracker sequences() {
        return sequences;
    }

    /** Decodes a message and calls its handler. */
    protected abstract Finding dispatch(Header header, byte[] body);

    /** Answers a primary message that the driver answers by itself; false when there is no such answer. */
    protected abstract boolean answer(Header primary, String message);

    protected void onReceived(Report report) {
    }

    /** A transaction does not follow the sequences. */
    protected void onDeviation(Deviation deviation) {
    }

    /** A message that no transaction takes. It is answered already where SECS-II has an answer for it. */
    protected void onUnknown(Header header, byte[] body, Finding finding) {
    }

    /** The other side ended a transaction by function 0. */
    protected void onAborted(Header primary) {
    }

    protected void onTimeout(Header primary) {
    }

    /** A message of stream 9, and the message that it complains of. */
    protected void onError(Header error, Optional<Header> primary) {
    }

    /** A reply without its primary message. */
    protected void onStrayReply(Header header) {
    }

    /** Sends a primary message; returns its system bytes. */
    protected final int sendPrimary(MessageHead head, byte[] body, String transaction) {
        Header header = new Header(deviceId, head.stream(), head.function(), head.expectsReply(), nextSystem++);
        if (header.expectsReply()) {
            open.put(header.system(), new Open(header, System.nanoTime()));
        }
        track(transaction);
        transport.send(header, body);
        return header.system();
    }

    /** Sends the reply to a primary message. The transaction is null for a reply of the driver. */
    protected final void sendReply(Header primary, MessageHead head, byte[] body, String transaction) {
        if (current != null && current.system() == primary.system()) {
            isAnswered = true;
        }
        track(transaction);
        transport.send(new Header(primary.session(), head.stream(), head.function(), false, primary.system()), body);
    }

    protected final void track(String transaction) {
        if (transaction != null) {
            sequences.take(transaction).forEach(this::onDeviation);
        }
    }

    protected final void setAnswerable(String message) {
        answerable = message;
    }

    private void receive(Header header, byte[] body) {
        if (header.session() != deviceId) {
            refuse(header, body, Finding.UNKNOWN_STREAM, 1);
            return;
        }
        if (header.stream() == 9) {
            takeError(header, body);
        } else if (header.function() == 0) {
            takeAbort(header);
        } else if (!header.isPrimary() && open.remove(header.system()) == null) {
            onStrayReply(header);
        }
        current = header;
        isAnswered = false;
        answerable = null;
        Finding finding = dispatch(header, body);
        if (finding == Finding.TAKEN || finding == Finding.NO_TRANSACTION) {
            answerByItself(header);
        }
        if (finding != Finding.TAKEN && header.stream() != 9 && header.function() != 0) {
            refuse(header, body, finding, functionFor(finding));
        }
        current = null;
    }

    private void answerByItself(Header header) {
        if (header.isPrimary() && header.expectsReply() && !isAnswered && answerable != null) {
            isAnswered = answer(header, answerable);
        }
    }

    private static int functionFor(Finding finding) {
        switch (finding) {
            case UNKNOWN_STREAM:
                return 3;
            case UNKNOWN_FUNCTION:
                return 5;
            case ILLEGAL_DATA:
                return 7;
            default:
                return 0;
        }
    }

    /** An equipment answers by stream 9, a host by function 0. */
    private void refuse(Header header, byte[] body, Finding finding, int function) {
        if (side == Side.EQUIPMENT && function != 0) {
            sendError(function, header);
        } else if (side == Side.HOST && function != 0 && header.isPrimary() && header.expectsReply()) {
            transport.send(header.abort(), new byte[0]);
        }
        onUnknown(header, body, finding);
    }

    private void sendError(int function, Header about) {
        if (side != Side.EQUIPMENT) {
            return;
        }
        ByteArrayOutputStream body = new ByteArrayOutputStream();
        body.writeBytes(HEADER_ITEM);
        body.writeBytes(about.bytes());
        transport.send(new Header(deviceId, 9, function, false, nextSystem++), body.toByteArray());
    }

    private void takeError(Header header, byte[] body) {
        Optional<Header> primary = Optional.empty();
        if (body.length > HEADER_ITEM.length && Arrays.equals(Arrays.copyOf(body, HEADER_ITEM.length), HEADER_ITEM)) {
            primary = Header.fromBytes(Arrays.copyOfRange(body, HEADER_ITEM.length, body.length));
        }
        primary.ifPresent(about -> open.remove(about.system()));
        onError(header, primary);
    }

    private void takeAbort(Header header) {
        Open aborted = open.remove(header.system());
        if (aborted == null) {
            onStrayReply(header);
        } else {
            onAborted(aborted.primary());
        }
    }
}
