package zelto;

import java.nio.ByteBuffer;
import java.util.Optional;

/**
 * The header of a message.
 *
 * @param session the device id
 * @param expectsReply the W-bit
 * @param system ties a reply to its primary message
 */
public record Header(int session, int stream, int function, boolean expectsReply, int system) {
    public static final int SIZE = 10;

    public boolean isPrimary() {
        return function % 2 == 1;
    }

    /** The header of function 0, which ends the transaction of this message without an answer. */
    public Header abort() {
        return new Header(session, stream, 0, false, system);
    }

    /** The ten bytes on the link. */
    public byte[] bytes() {
        return ByteBuffer.allocate(SIZE)
            .putShort((short) session)
            .put((byte) (stream | (expectsReply ? 0x80 : 0)))
            .put((byte) function)
            .putShort((short) 0)
            .putInt(system)
            .array();
    }

    /** Empty when there are fewer than ten bytes, or when they are those of a control message. */
    public static Optional<Header> fromBytes(byte[] bytes) {
        if (bytes.length < SIZE || bytes[4] != 0 || bytes[5] != 0) {
            return Optional.empty();
        }
        ByteBuffer buffer = ByteBuffer.wrap(bytes);
        return Optional.of(new Header(
            buffer.getShort(0) & 0xFFFF, bytes[2] & 0x7F, bytes[3] & 0xFF, bytes[2] < 0, buffer.getInt(6)));
    }

    @Override
    public String toString() {
        return "S" + stream + "F" + function + (expectsReply ? " W" : "");
    }
}
