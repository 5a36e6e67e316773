package zelto;

import java.math.BigInteger;
import java.util.regex.Matcher;
import java.util.regex.Pattern;

/** The words that values are compared with. */
public final class Words {
    /** A text that no message carries. */
    public static final String NO_TEXT = "\0\uFFFF";

    private static final Pattern DECIMAL = Pattern.compile("\\+?(-?(?:[0-9]+\\.?[0-9]*|\\.[0-9]+)(?:[eE][+-]?[0-9]+)?)");
    private static final Pattern WHOLE =
        Pattern.compile("([+-]?)(?:0[xX]([0-9a-fA-F]+)|0[bB]([01]+)|0[oO]([0-7]+)|([0-9]+))");
    private static final int[] BASES = {16, 2, 8, 10};

    private Words() {
    }

    /** "12", "-3", "+4", "0x1F", "0b101", "0o17" with at most 64 bits; null for anything else. */
    static BigInteger wholeNumber(String word) {
        Matcher matcher = WHOLE.matcher(word);
        if (!matcher.matches()) {
            return null;
        }
        for (int index = 0; index < BASES.length; ++index) {
            String digits = matcher.group(index + 2);
            if (digits != null) {
                BigInteger number = new BigInteger(digits, BASES[index]);
                if (number.bitLength() > Long.SIZE) {
                    return null;
                }
                return matcher.group(1).equals("-") ? number.negate() : number;
            }
        }
        return null;
    }

    /** A decimal number, with or without a fraction and an exponent; null for anything else. */
    static Double decimalNumber(String word) {
        Matcher matcher = DECIMAL.matcher(word);
        if (!matcher.matches()) {
            return null;
        }
        double value = Double.parseDouble(matcher.group(1));
        boolean isTooSmall = value == 0 && word.split("[eE]")[0].matches(".*[1-9].*");
        return Double.isInfinite(value) || isTooSmall ? null : value;
    }
}
