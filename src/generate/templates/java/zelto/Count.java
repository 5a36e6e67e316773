package zelto;

/** How many values an item has: exactly the number, or at most the number. */
public record Count(int number, boolean isExact) {
    public static Count exactly(int number) {
        return new Count(number, true);
    }

    public static Count upTo(int number) {
        return new Count(number, false);
    }

    public boolean allows(int values) {
        return isExact ? values == number : values <= number;
    }
}
