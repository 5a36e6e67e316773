package zelto;

import java.util.ArrayDeque;
import java.util.Queue;

/**
 * Two transports that are connected to each other, for tests and for work without a link. Messages wait until
 * {@link #deliver} is called.
 */
public final class Loopback {
    private final Queue<Sent> messages = new ArrayDeque<>();
    private final Transport host = new End();
    private final Transport equipment = new End();
    private Listener listener = (toHost, header, body) -> { };

    /** Called for each message that is sent. */
    public interface Listener {
        void sent(boolean toHost, Header header, byte[] body);
    }

    private record Sent(Transport to, Header header, byte[] body) {
    }

    private final class End extends Transport {
        @Override
        public void send(Header header, byte[] body) {
            boolean toHost = this == equipment;
            listener.sent(toHost, header, body);
            messages.add(new Sent(toHost ? host : equipment, header, body));
        }
    }

    public Transport host() {
        return host;
    }

    public Transport equipment() {
        return equipment;
    }

    public void setListener(Listener listener) {
        this.listener = listener;
    }

    /** Delivers all messages, including those that are sent meanwhile. Returns their number. */
    public int deliver() {
        int count = 0;
        for (; !messages.isEmpty(); ++count) {
            Sent message = messages.remove();
            message.to().receive(message.header(), message.body());
        }
        return count;
    }
}
