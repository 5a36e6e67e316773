package ${package};

//% each imports
import ${package}.${name};
//% end
import java.util.List;
import zelto.*;

/** The ${sideWord} side of ${project}. Derive from it and override the handlers of what you want to know. */
public class PlugIn extends Link {
//% if sequences
    private static final List<Sequence> SEQUENCES = List.of(
//% each sequences
        new Sequence(
            ${nameLiteral},
            List.of(
//% each steps
//% if more
                ${step},
//% else
                ${step}
//% end
//% end
//% if more
            )),
//% else
            ))
//% end
//% end
    );
//% else
    private static final List<Sequence> SEQUENCES = List.of();
//% end

    public PlugIn(Transport transport) {
        super(transport, Side.${sideConstant}, SEQUENCES);
    }
//% each sentTypes

//% if isPrimary
    /** ${head}. Returns the system bytes, which the reply has as well. */
    public int send${type}(${messageRef} message) {
        return sendPrimary(${messageRef}.HEAD, message.encode(), ${typeRef}.NAME);
    }

    public int send${type}() {
        return send${type}(${typeRef}.message());
    }
//% else
    /** ${head}, the reply to a primary message. */
    public void send${type}(Header primary, ${messageRef} message) {
        sendReply(primary, ${messageRef}.HEAD, message.encode(), ${typeRef}.NAME);
    }

    public void send${type}(Header primary) {
        send${type}(primary, ${typeRef}.message());
    }
//% end
//% end
//% each receivedTypes

    /** ${head} */
    protected void on${type}(${typeRef} received) {
    }
//% end

    @Override
    protected Finding dispatch(Header header, byte[] body) {
        switch (header.stream()) {
//% each streams
            case ${stream}:
                return dispatchStream${stream}(header, body);
//% end
            default:
                return Finding.UNKNOWN_STREAM;
        }
    }
//% each streams

    private Finding dispatchStream${stream}(Header header, byte[] body) {
        Finding finding = Finding.UNKNOWN_FUNCTION;
        switch (header.function()) {
//% each functions
            case ${function}:
//% each candidates
//% if isFirst
                finding = take${message}(header, body);
//% else
                if (finding == Finding.ILLEGAL_DATA) {
                    finding = take${message}(header, body);
                }
//% end
//% end
                break;
//% end
            default:
                break;
        }
        return finding;
    }
//% end
//% each chains

    private Finding take${message}(Header header, byte[] body) {
        ${messageRef} message = ${messageRef}.decode(body).orElse(null);
        if (message == null) {
            return Finding.ILLEGAL_DATA;
        }
//% if isAnswered
        setAnswerable(${nameLiteral});
//% end
//% each chain
//% if hasCondition
        if (${typeRef}.applies(message)) {
            return take(new ${typeRef}(header, message));
        }
//% else
        return take(new ${typeRef}(header, message));
//% end
//% end
//% if isOpen
        return Finding.NO_TRANSACTION;
//% end
    }
//% end
//% each receivedTypes

    private Finding take(${typeRef} received) {
        track(${typeRef}.NAME);
        onReceived(new Report(
            received.header, ${messageRef}.HEAD.name(), ${typeRef}.NAME, received.items, ${typeRef}.IS_REPORTED));
        on${type}(received);
        return Finding.TAKEN;
    }
//% end

    @Override
    protected boolean answer(Header primary, String message) {
        switch (message) {
//% each answers
            case ${nameLiteral}:
                sendReply(primary, ${replyRef}.HEAD, new ${replyRef}().encode(), null);
                return true;
//% end
            default:
                return false;
        }
    }
}
