package zelto;

import java.util.ArrayList;
import java.util.List;

/** A data item of any format. */
public final class Any {
    public Format format = Format.A;
    /** The bytes of an item that is no list, one a character; numbers have the most significant byte first. */
    public String data = "";
    /** The members of a list. */
    public List<Any> members = new ArrayList<>();

    public static Any text(String characters) {
        Any any = new Any();
        any.data = characters;
        return any;
    }

    /** The bits of the values of an item of numbers. */
    long[] bits() {
        long[] bits = new long[format.width() == 0 ? 0 : data.length() / format.width()];
        for (int index = 0; index < bits.length; ++index) {
            long value = 0;
            for (int at = index * format.width(); at < (index + 1) * format.width(); ++at) {
                value = value << 8 | data.charAt(at);
            }
            bits[index] = Numbers.extended(format, value);
        }
        return bits;
    }
}
