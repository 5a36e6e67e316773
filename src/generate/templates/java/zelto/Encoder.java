package zelto;

import java.io.ByteArrayOutputStream;

/** Writes the fields of a message as the bytes of SECS-II items. */
final class Encoder extends Codec {
    private static final int LONGEST = 0xFFFFFF;

    private final ByteArrayOutputStream bytes = new ByteArrayOutputStream();

    byte[] bytes() {
        return bytes.toByteArray();
    }

    @Override
    public void list(int members) {
        head(Format.L, members);
    }

    @Override
    public void end() {
    }

    @Override
    int beginList(int members, Count count) {
        require(count, members, Format.L);
        head(Format.L, members);
        return members;
    }

    @Override
    int begin(Format format, int values, Count count) {
        require(count, values, format);
        head(format, (long) values * format.width());
        return values;
    }

    @Override
    long next(Format format, long bits) {
        append(bits, format.width());
        return bits;
    }

    /** Blanks fill a text that is shorter than its fixed count. */
    @Override
    String text(Format format, String value, Count count) {
        int missing = count.isExact() ? Math.max(0, count.number() - value.length()) : 0;
        require(count, value.length() + missing, format);
        head(format, value.length() + missing);
        append(value);
        append(" ".repeat(missing));
        return value;
    }

    @Override
    public Any x(Any any) {
        boolean isList = any.format == Format.L;
        head(any.format, isList ? any.members.size() : any.data.length());
        if (!isList) {
            append(any.data);
        }
        any.members.forEach(this::x);
        return any;
    }

    private static void require(Count count, int found, Format format) {
        if (!count.allows(found)) {
            throw new MisfitException(format + " of " + found + ", where the definition has "
                + (count.isExact() ? "" : "at most ") + count.number());
        }
    }

    private void head(Format format, long length) {
        if (length > LONGEST) {
            throw new MisfitException("an item is longer than a message can express");
        }
        int lengthBytes = length > 0xFFFF ? 3 : length > 0xFF ? 2 : 1;
        bytes.write(format.code() << 2 | lengthBytes);
        append(length, lengthBytes);
    }

    private void append(String characters) {
        for (int at = 0; at < characters.length(); ++at) {
            bytes.write(characters.charAt(at));
        }
    }

    private void append(long value, int width) {
        for (int shift = 8 * (width - 1); shift >= 0; shift -= 8) {
            bytes.write((int) (value >>> shift));
        }
    }
}
