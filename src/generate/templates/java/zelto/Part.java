package zelto;

/** A message, or a list within one that has a type of its own. */
public interface Part {
    /** Gives each field to the codec, in the order of the message. */
    void describe(Codec codec);
}
