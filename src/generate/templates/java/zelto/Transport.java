package zelto;

/**
 * The way of messages to the other side. An HSMS library fills it in some ten lines: {@link #send} passes the header and
 * the body to the library, and whatever the library receives is passed to {@link #receive}.
 */
public abstract class Transport {
    private Receiver receiver;

    /** What takes the messages that arrive. */
    interface Receiver {
        void receive(Header header, byte[] body);
    }

    public abstract void send(Header header, byte[] body);

    /** To be called for each message that arrives. */
    public final void receive(Header header, byte[] body) {
        if (receiver != null) {
            receiver.receive(header, body);
        }
    }

    final void setReceiver(Receiver receiver) {
        this.receiver = receiver;
    }
}
