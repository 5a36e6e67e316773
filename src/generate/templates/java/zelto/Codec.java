package zelto;

import java.util.ArrayList;
import java.util.List;
import java.util.function.Supplier;
import java.util.function.UnaryOperator;

/**
 * Reads, writes or prints the fields of a message in their order. Each call takes the value of a field and returns the
 * value that the field has from then on.
 */
public abstract class Codec {
    /** Begins a list with a fixed number of members. */
    public abstract void list(int members);

    /** Ends a list. */
    public abstract void end();

    /** An item of any format. */
    public abstract Any x(Any any);

    /** The item before was a key: messages with another value are other messages. */
    public void key(Value value, String expected) {
    }

    /** Begins a list of variable count; returns the number of its members. */
    abstract int beginList(int members, Count count);

    /** Begins an item of numbers; returns how many there are. */
    abstract int begin(Format format, int values, Count count);

    abstract long next(Format format, long bits);

    /** Ends an item of numbers. */
    void finish() {
    }

    abstract String text(Format format, String value, Count count);

    /** Whether fields get new values. */
    boolean isReading() {
        return false;
    }

    /** Whether all was as defined so far. */
    boolean isGood() {
        return true;
    }

    public final <T> List<T> listOf(List<T> members, Count count, Supplier<T> create, UnaryOperator<T> describe) {
        int size = beginList(members.size(), count);
        List<T> described = new ArrayList<>();
        for (int index = 0; index < size && isGood(); ++index) {
            described.add(describe.apply(isReading() ? create.get() : members.get(index)));
        }
        end();
        return described;
    }

    public final <T extends Part> List<T> listOf(List<T> members, Count count, Supplier<T> create) {
        return listOf(members, count, create, member -> {
            member.describe(this);
            return member;
        });
    }

    public final List<Any> anyList(List<Any> members, Count count) {
        return listOf(members, count, Any::new, this::x);
    }

    public final String a(String value, Count count) {
        return text(Format.A, value, count);
    }

    public final String j(String value, Count count) {
        return text(Format.J, value, count);
    }

    public final int b(int value) {
        return (int) one(Format.B, value);
    }

    public final byte[] bs(byte[] values, Count count) {
        return bytes(Format.B, values, count);
    }

    public final boolean bool(boolean value) {
        return one(Format.BOOLEAN, value ? 1 : 0) != 0;
    }

    public final boolean[] bools(boolean[] values, Count count) {
        int size = begin(Format.BOOLEAN, values.length, count);
        boolean[] described = size == values.length ? values : new boolean[size];
        for (int index = 0; index < size; ++index) {
            described[index] = next(Format.BOOLEAN, described[index] ? 1 : 0) != 0;
        }
        finish();
        return described;
    }

    public final byte i1(byte value) {
        return (byte) one(Format.I1, value);
    }

    public final byte[] i1s(byte[] values, Count count) {
        return bytes(Format.I1, values, count);
    }

    public final short i2(short value) {
        return (short) one(Format.I2, value);
    }

    public final short[] i2s(short[] values, Count count) {
        int size = begin(Format.I2, values.length, count);
        short[] described = size == values.length ? values : new short[size];
        for (int index = 0; index < size; ++index) {
            described[index] = (short) next(Format.I2, described[index]);
        }
        finish();
        return described;
    }

    public final int i4(int value) {
        return (int) one(Format.I4, value);
    }

    public final int[] i4s(int[] values, Count count) {
        return ints(Format.I4, values, count);
    }

    public final long i8(long value) {
        return one(Format.I8, value);
    }

    public final long[] i8s(long[] values, Count count) {
        return longs(Format.I8, values, count);
    }

    public final int u1(int value) {
        return (int) one(Format.U1, value);
    }

    public final int[] u1s(int[] values, Count count) {
        return ints(Format.U1, values, count);
    }

    public final int u2(int value) {
        return (int) one(Format.U2, value);
    }

    public final int[] u2s(int[] values, Count count) {
        return ints(Format.U2, values, count);
    }

    public final long u4(long value) {
        return one(Format.U4, value);
    }

    public final long[] u4s(long[] values, Count count) {
        return longs(Format.U4, values, count);
    }

    public final long u8(long value) {
        return one(Format.U8, value);
    }

    public final long[] u8s(long[] values, Count count) {
        return longs(Format.U8, values, count);
    }

    public final float f4(float value) {
        return Float.intBitsToFloat((int) one(Format.F4, Float.floatToRawIntBits(value)));
    }

    public final float[] f4s(float[] values, Count count) {
        int size = begin(Format.F4, values.length, count);
        float[] described = size == values.length ? values : new float[size];
        for (int index = 0; index < size; ++index) {
            described[index] = Float.intBitsToFloat((int) next(Format.F4, Float.floatToRawIntBits(described[index])));
        }
        finish();
        return described;
    }

    public final double f8(double value) {
        return Double.longBitsToDouble(one(Format.F8, Double.doubleToRawLongBits(value)));
    }

    public final double[] f8s(double[] values, Count count) {
        int size = begin(Format.F8, values.length, count);
        double[] described = size == values.length ? values : new double[size];
        for (int index = 0; index < size; ++index) {
            described[index] = Double.longBitsToDouble(next(Format.F8, Double.doubleToRawLongBits(described[index])));
        }
        finish();
        return described;
    }

    private static final Count ONE = Count.exactly(1);

    private long one(Format format, long bits) {
        begin(format, 1, ONE);
        long value = next(format, bits);
        finish();
        return value;
    }

    private byte[] bytes(Format format, byte[] values, Count count) {
        int size = begin(format, values.length, count);
        byte[] described = size == values.length ? values : new byte[size];
        for (int index = 0; index < size; ++index) {
            described[index] = (byte) next(format, described[index]);
        }
        finish();
        return described;
    }

    private int[] ints(Format format, int[] values, Count count) {
        int size = begin(format, values.length, count);
        int[] described = size == values.length ? values : new int[size];
        for (int index = 0; index < size; ++index) {
            described[index] = (int) next(format, described[index]);
        }
        finish();
        return described;
    }

    private long[] longs(Format format, long[] values, Count count) {
        int size = begin(format, values.length, count);
        long[] described = size == values.length ? values : new long[size];
        for (int index = 0; index < size; ++index) {
            described[index] = next(format, described[index]);
        }
        finish();
        return described;
    }
}
