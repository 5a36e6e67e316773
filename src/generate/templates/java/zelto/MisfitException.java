package zelto;

/** A value has more or fewer characters, values or members than its definition allows. */
public final class MisfitException extends RuntimeException {
    private static final long serialVersionUID = 1;

    public MisfitException(String message) {
        super(message);
    }
}
