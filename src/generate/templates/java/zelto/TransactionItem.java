package zelto;

import java.util.OptionalDouble;

/** An item of a transaction: a name and the value that it has in one message. */
public record TransactionItem(String name, String text, boolean isMissing) {
    /** The message has no such value. */
    public TransactionItem(String name) {
        this(name, "", true);
    }

    public TransactionItem(String name, String text) {
        this(name, text, false);
    }

    public TransactionItem(String name, Value value) {
        this(name, value.text(), value.isMissing());
    }

    /** Empty for a text that is no number. */
    public OptionalDouble number() {
        Double number = text.startsWith("+") ? null : Words.decimalNumber(text);
        return number == null ? OptionalDouble.empty() : OptionalDouble.of(number);
    }
}
