package zelto;

import java.util.List;

/**
 * A received message in words, for logs and for whatever treats all transactions alike.
 *
 * @param isReported whether the transaction is to be reported
 */
public record Report(
    Header header, String message, String transaction, List<TransactionItem> items, boolean isReported) {
}
