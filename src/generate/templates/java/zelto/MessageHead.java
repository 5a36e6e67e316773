package zelto;

/** What the definition of a message fixes of its header. */
public record MessageHead(String name, int stream, int function, boolean expectsReply) {
}
