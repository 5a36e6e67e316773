package zelto;

/** What a plug-in made of a message. */
public enum Finding {
    TAKEN,
    /** The message is defined, but no transaction takes it. */
    NO_TRANSACTION,
    UNKNOWN_STREAM,
    UNKNOWN_FUNCTION,
    /** No definition of its stream and function has these items. */
    ILLEGAL_DATA
}
