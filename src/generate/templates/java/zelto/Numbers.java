package zelto;

import java.math.BigDecimal;
import java.math.BigInteger;
import java.math.MathContext;
import java.math.RoundingMode;

/** Numbers as the bits that a message has of them: the lowest bytes of a long, and what they mean. */
final class Numbers {
    private static final int MOST_DIGITS = 17;
    private static final RoundingMode[] MODES = {RoundingMode.HALF_EVEN, RoundingMode.DOWN, RoundingMode.UP};

    private Numbers() {
    }

    /** The bits of a value with those above it: copies of the sign, or zeros. */
    static long extended(Format format, long bits) {
        int unused = 64 - 8 * format.width();
        return format.isSigned() ? bits << unused >> unused : bits << unused >>> unused;
    }

    /** The shortest text that reads back as the same value; truth values as "True" and "False". */
    static String text(Format format, long bits) {
        switch (format) {
            case BOOLEAN:
                return bits != 0 ? "True" : "False";
            case F4:
                return text(Float.intBitsToFloat((int) bits));
            case F8:
                return text(Double.longBitsToDouble(bits));
            case U8:
                return Long.toUnsignedString(bits);
            default:
                return Long.toString(bits);
        }
    }

    private static String text(float value) {
        return text(value, number -> number.floatValue() == value);
    }

    private static String text(double value) {
        return text(value, number -> number.doubleValue() == value);
    }

    private interface RoundTrip {
        boolean keeps(BigDecimal number);
    }

    private static String text(double value, RoundTrip roundTrip) {
        if (Double.isNaN(value)) {
            return "NaN";
        }
        if (Double.isInfinite(value)) {
            return value < 0 ? "-Infinity" : "Infinity";
        }
        if (value == 0) {
            return 1 / value < 0 ? "-0" : "0";
        }
        BigDecimal exact = new BigDecimal(Math.abs(value));
        BigDecimal shortest = shortest(exact, number -> roundTrip.keeps(value < 0 ? number.negate() : number));
        String digits = fixed(exact, shortest);
        String scientific = scientific(shortest);
        return (value < 0 ? "-" : "") + (digits.length() <= scientific.length() ? digits : scientific);
    }

    /** The number with the fewest digits that is read back as the same value. */
    private static BigDecimal shortest(BigDecimal exact, RoundTrip roundTrip) {
        for (int digits = 1; digits < MOST_DIGITS; ++digits) {
            // Just above a power of two the values below are nearer, so that the nearest digits may mean another one.
            for (RoundingMode mode : MODES) {
                BigDecimal number = exact.round(new MathContext(digits, mode));
                if (roundTrip.keeps(number)) {
                    return number;
                }
            }
        }
        return exact.round(new MathContext(MOST_DIGITS, RoundingMode.HALF_EVEN));
    }

    private static String fixed(BigDecimal exact, BigDecimal shortest) {
        BigDecimal stripped = shortest.stripTrailingZeros();
        return stripped.scale() > 0 ? stripped.toPlainString() : exact.setScale(0, RoundingMode.DOWN).toPlainString();
    }

    private static String scientific(BigDecimal number) {
        BigDecimal stripped = number.stripTrailingZeros();
        String digits = stripped.unscaledValue().toString();
        int exponent = digits.length() - 1 - stripped.scale();
        String size = Integer.toString(Math.abs(exponent));
        return digits.charAt(0) + (digits.length() > 1 ? "." + digits.substring(1) : "") + "e"
            + (exponent < 0 ? "-" : "+") + (size.length() < 2 ? "0" : "") + size;
    }

    /** Whether a value is the one that a word means. */
    static boolean equalsWord(Format format, long bits, String word) {
        switch (format) {
            case BOOLEAN:
                return bits != 0 ? isOneOf(word, "TRUE", "T") : isOneOf(word, "FALSE", "F");
            case F4: {
                Double number = Words.decimalNumber(word);
                return number != null && number.floatValue() == Float.intBitsToFloat((int) bits);
            }
            case F8: {
                Double number = Words.decimalNumber(word);
                return number != null && number == Double.longBitsToDouble(bits);
            }
            default:
                return equalsWhole(wholeOf(format, bits), word);
        }
    }

    private static boolean equalsWhole(BigInteger value, String word) {
        BigInteger whole = Words.wholeNumber(word);
        if (whole != null) {
            return whole.equals(value);
        }
        Double number = Words.decimalNumber(word);
        return number != null && number == value.doubleValue();
    }

    private static BigInteger wholeOf(Format format, long bits) {
        return format == Format.U8 ? new BigInteger(Long.toUnsignedString(bits)) : BigInteger.valueOf(bits);
    }

    private static boolean isOneOf(String word, String name, String letter) {
        return word.equalsIgnoreCase(name) || word.equalsIgnoreCase(letter);
    }
}
