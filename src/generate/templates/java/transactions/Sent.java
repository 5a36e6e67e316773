package ${package}.transactions;

//% if isImported
import ${package}.messages.${message};
//% end
//% if hasRecords
import zelto.*;
//% end

/** Sent as ${head}. */
public final class ${type} {
    public static final String NAME = ${nameLiteral};

    private ${type}() {
    }

    /** The message with the values of the model. */
    public static ${messageRef} message() {
        ${messageRef} message = new ${messageRef}();
//% each assignments
        ${assignment}
//% end
        return message;
    }
}
