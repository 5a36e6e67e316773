package ${package}.transactions;

//% if isImported
import ${package}.messages.${message};
//% end
import java.util.List;
import zelto.*;

/** Received by ${head}, ${comment} */
public final class ${type} {
    public static final String NAME = ${nameLiteral};
    /** Whether the transaction is to be reported. */
    public static final boolean IS_REPORTED = ${report};

    public final Header header;
    public final ${messageRef} message;
    /** The items of the transaction, in the order of the model. */
    public final List<TransactionItem> items;

    public ${type}(Header header, ${messageRef} message) {
        this.header = header;
        this.message = message;
//% if items
        items = List.of(
//% each items
//% if more
            ${compute}(message),
//% else
            ${compute}(message));
//% end
//% end
//% else
        items = List.of();
//% end
    }

    /** Whether a message is this transaction, as far as its items tell. */
    public static boolean applies(${messageRef} message) {
        return ${condition};
    }
//% each items

    /** ${itemComment} */
    public TransactionItem ${item}() {
        return items.get(${itemIndex});
    }
//% end
//% each values

    /** ${address} */
    private static Value ${function}(${messageRef} message) {
//% if isFound
//% each steps
        if (${list}.size() < ${index}) {
            return Value.MISSING;
        }
        var ${member} = ${list}.get(${place});
//% end
//% if isList
        return Value.LIST;
//% else
        return ${value};
//% end
//% else
        return Value.MISSING;
//% end
    }
//% end
//% each items

    private static TransactionItem ${compute}(${messageRef} message) {
//% each lines
${line}
//% end
//% if isOpen
//% if hasSource
        Value source = ${source};
        if (!source.isMissing()) {
            return new TransactionItem(${nameLiteral}, source);
        }
//% end
//% if hasAbsolute
        return new TransactionItem(${nameLiteral}, ${absolute});
//% else
        return new TransactionItem(${nameLiteral});
//% end
//% end
    }
//% end
}
