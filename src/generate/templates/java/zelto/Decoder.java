package zelto;

import java.nio.charset.StandardCharsets;

/** Reads the bytes of a message into its fields. After the first item that is not as defined nothing is read. */
final class Decoder extends Codec {
    private static final int DEEPEST = 1000;

    private final byte[] bytes;
    private int at = 0;
    private boolean isGood = true;
    private int depth = 0;
    /** Of the item whose head was read last; the length of a list is the number of its members. */
    private Format format = Format.L;
    private int length = 0;

    Decoder(byte[] bytes) {
        this.bytes = bytes;
    }

    /** Whether all was as defined, and nothing is left. */
    boolean isDone() {
        return isGood && at == bytes.length;
    }

    @Override
    boolean isGood() {
        return isGood;
    }

    @Override
    boolean isReading() {
        return true;
    }

    @Override
    public void list(int members) {
        readHead();
        isGood = isGood && format == Format.L && length == members;
    }

    @Override
    public void end() {
    }

    @Override
    int beginList(int members, Count count) {
        readHead();
        isGood = isGood && format == Format.L && count.allows(length);
        return isGood ? length : 0;
    }

    @Override
    int begin(Format expected, int values, Count count) {
        readHead();
        isGood = isGood && format == expected && hasData() && count.allows(length / expected.width());
        return isGood ? length / expected.width() : values;
    }

    @Override
    long next(Format format, long bits) {
        if (!isGood) {
            return bits;
        }
        long value = 0;
        for (int left = format.width(); left > 0; --left) {
            value = value << 8 | (bytes[at++] & 0xFF);
        }
        return Numbers.extended(format, value);
    }

    @Override
    String text(Format expected, String value, Count count) {
        readHead();
        isGood = isGood && format == expected && hasData() && count.allows(length);
        return isGood ? readText() : value;
    }

    @Override
    public Any x(Any any) {
        readHead();
        any.format = format;
        any.members.clear();
        any.data = "";
        if (isGood && format == Format.L && depth < DEEPEST) {
            ++depth;
            for (int left = length; isGood && left > 0; --left) {
                any.members.add(x(new Any()));
            }
            --depth;
        } else {
            isGood = isGood && format != Format.L && hasData();
            any.data = isGood ? readText() : "";
        }
        return any;
    }

    @Override
    public void key(Value value, String expected) {
        isGood = isGood && value.is(expected);
    }

    private boolean hasData() {
        return length <= bytes.length - at && length % format.width() == 0;
    }

    private String readText() {
        at += length;
        return new String(bytes, at - length, length, StandardCharsets.ISO_8859_1);
    }

    private void readHead() {
        int lengthBytes = isGood && at < bytes.length ? bytes[at] & 3 : 0;
        Format found = lengthBytes == 0 ? null : Format.of((bytes[at] & 0xFF) >> 2);
        if (found == null || bytes.length - at <= lengthBytes) {
            isGood = false;
            return;
        }
        format = found;
        length = 0;
        for (++at; lengthBytes > 0; --lengthBytes) {
            length = length << 8 | (bytes[at++] & 0xFF);
        }
    }
}
