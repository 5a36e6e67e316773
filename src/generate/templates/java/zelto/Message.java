package zelto;

import java.util.Optional;

/** A SECS message: its fields are those of the class. */
public abstract class Message implements Part {
    /**
     * The bytes of the message.
     *
     * @throws MisfitException when a count is not as defined
     */
    public final byte[] encode() {
        Encoder encoder = new Encoder();
        describe(encoder);
        return encoder.bytes();
    }

    /** The items as SML, each on a line of its own. */
    public final String toSml() {
        SmlWriter writer = new SmlWriter();
        describe(writer);
        return writer.text();
    }

    @Override
    public final String toString() {
        return toSml();
    }

    /** Reads the fields of a message; empty when the bytes are not those of the message. */
    protected static <T extends Message> Optional<T> decode(byte[] body, T message) {
        Decoder decoder = new Decoder(body);
        message.describe(decoder);
        return decoder.isDone() ? Optional.of(message) : Optional.empty();
    }
}
