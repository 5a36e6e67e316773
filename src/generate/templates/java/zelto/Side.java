package zelto;

/** The two ends of a link. */
public enum Side {
    HOST,
    EQUIPMENT
}
