package zelto;

/**
 * A transaction that does not follow a sequence that has begun.
 *
 * @param restarts the sequence begins again; otherwise it goes on after this transaction
 */
public record Deviation(String transaction, String sequence, boolean restarts) {
}
