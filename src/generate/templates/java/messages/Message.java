package ${package}.messages;

//% if hasLists
import java.util.ArrayList;
import java.util.List;
//% end
import java.util.Optional;
import zelto.*;

/** ${summary} */
public final class ${type} extends Message {
    public static final MessageHead HEAD = new MessageHead(${nameLiteral}, ${stream}, ${function}, ${wait});
//% each nested

    /** ${recordComment} */
    public static final class ${recordType} implements Part {
//% each fields
        /** ${fieldComment} */
        public ${fieldType} ${field} = ${initial};
//% end

        @Override
        public void describe(Codec codec) {
//% each steps
//% if openList
            codec.list(${count});
//% end
//% if closeList
            codec.end();
//% end
//% if value
            ${field} = codec.${read};
//% if isKey
            codec.key(${keyValue}, ${keyLiteral});
//% end
//% end
//% if record
            ${field}.describe(codec);
//% end
//% if values
//% if isKey
            ${field} = codec.listOf(${field}, Count.${rule}(${count}), () -> ${memberInitial}, member -> {
                ${memberType} value = codec.${readMember};
                codec.key(${keyValue}, ${keyLiteral});
                return value;
            });
//% else
            ${field} = codec.listOf(
                ${field}, Count.${rule}(${count}), () -> ${memberInitial}, member -> codec.${readMember});
//% end
//% end
//% if records
            ${field} = codec.listOf(${field}, Count.${rule}(${count}), ${partType}::new);
//% end
//% if anyItems
            ${field} = codec.anyList(${field}, Count.${rule}(${count}));
//% end
//% end
        }
    }
//% end

//% each fields
    /** ${fieldComment} */
    public ${fieldType} ${field} = ${initial};
//% end
//% if fields

//% end
    /** Empty when the bytes are not those of this message. */
    public static Optional<${type}> decode(byte[] body) {
        return decode(body, new ${type}());
    }

    @Override
    public void describe(Codec codec) {
//% each steps
//% if openList
        codec.list(${count});
//% end
//% if closeList
        codec.end();
//% end
//% if value
        ${field} = codec.${read};
//% if isKey
        codec.key(${keyValue}, ${keyLiteral});
//% end
//% end
//% if record
        ${field}.describe(codec);
//% end
//% if values
//% if isKey
        ${field} = codec.listOf(${field}, Count.${rule}(${count}), () -> ${memberInitial}, member -> {
            ${memberType} value = codec.${readMember};
            codec.key(${keyValue}, ${keyLiteral});
            return value;
        });
//% else
        ${field} = codec.listOf(
            ${field}, Count.${rule}(${count}), () -> ${memberInitial}, member -> codec.${readMember});
//% end
//% end
//% if records
        ${field} = codec.listOf(${field}, Count.${rule}(${count}), ${partType}::new);
//% end
//% if anyItems
        ${field} = codec.anyList(${field}, Count.${rule}(${count}));
//% end
//% end
    }
}
