package zelto;

/** The value of a data item while it is compared or becomes a transaction item. */
public final class Value {
    /** The message has no such item. */
    public static final Value MISSING = new Value(null, null, null);
    /** A list, which has no value of its own. */
    public static final Value LIST = new Value(Format.L, null, null);

    private final Format format;
    private final String text;
    private final long[] bits;

    private Value(Format format, String text, long[] bits) {
        this.format = format;
        this.text = text;
        this.bits = bits;
    }

    public static Value of(String text) {
        return new Value(Format.A, text, null);
    }

    public static Value of(Any any) {
        if (any.format == Format.L) {
            return LIST;
        }
        return any.format.isText() ? of(any.data) : new Value(any.format, null, any.bits());
    }

    public static Value of(Format format, long value) {
        return new Value(format, null, new long[] {value});
    }

    public static Value of(Format format, boolean value) {
        return of(format, value ? 1L : 0L);
    }

    public static Value of(Format format, float value) {
        return of(format, (long) Float.floatToRawIntBits(value));
    }

    public static Value of(Format format, double value) {
        return of(format, Double.doubleToRawLongBits(value));
    }

    public static Value of(Format format, boolean[] values) {
        return of(format, values.length, index -> values[index] ? 1 : 0);
    }

    public static Value of(Format format, byte[] values) {
        return of(format, values.length, index -> Numbers.extended(format, values[index]));
    }

    public static Value of(Format format, short[] values) {
        return of(format, values.length, index -> values[index]);
    }

    public static Value of(Format format, int[] values) {
        return of(format, values.length, index -> values[index]);
    }

    public static Value of(Format format, long[] values) {
        return of(format, values.length, index -> values[index]);
    }

    public static Value of(Format format, float[] values) {
        return of(format, values.length, index -> Float.floatToRawIntBits(values[index]));
    }

    public static Value of(Format format, double[] values) {
        return of(format, values.length, index -> Double.doubleToRawLongBits(values[index]));
    }

    private interface Bits {
        long at(int index);
    }

    private static Value of(Format format, int count, Bits source) {
        long[] bits = new long[count];
        for (int index = 0; index < count; ++index) {
            bits[index] = source.at(index);
        }
        return new Value(format, null, bits);
    }

    public boolean isMissing() {
        return format == null;
    }

    /** Characters, or numbers separated by blanks. */
    public String text() {
        if (text != null) {
            return text;
        }
        StringBuilder numbers = new StringBuilder();
        for (int index = 0; bits != null && index < bits.length; ++index) {
            numbers.append(index > 0 ? " " : "").append(Numbers.text(format, bits[index]));
        }
        return numbers.toString();
    }

    /**
     * Whether the item is in the message and has this value. Numbers are compared as numbers, one by one; F4 with the
     * precision of F4; truth values without regard to case.
     */
    public boolean is(String other) {
        if (text != null) {
            return text.equals(other);
        }
        String words = other.replaceAll("^ +", "");
        if (bits == null || bits.length == 0 || words.isEmpty()) {
            return false;
        }
        String[] parts = words.split(" +");
        if (parts.length != bits.length) {
            return false;
        }
        for (int index = 0; index < bits.length; ++index) {
            if (!Numbers.equalsWord(format, bits[index], parts[index])) {
                return false;
            }
        }
        return true;
    }
}
