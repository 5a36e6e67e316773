//% if hasLists
using System.Collections.Generic;
//% end
using Zelto;

namespace ${package}.Messages
{
    /// <summary>${summary}</summary>
    public sealed class ${type} : Message
    {
        public static readonly MessageHead Head = new MessageHead(${nameLiteral}, ${stream}, ${function}, ${wait});
//% each fields

        /// <summary>${fieldComment}</summary>
        public ${fieldType} ${field} { get; set; } = ${initial};
//% end

        /// <summary>Null when the bytes are not those of this message.</summary>
        public static ${type} Decode(byte[] body)
        {
            return Decode(body, new ${type}());
        }

        public override void Describe(Codec codec)
        {
//% each steps
//% if openList
            codec.List(${count});
//% end
//% if closeList
            codec.End();
//% end
//% if value
            ${field} = codec.${read};
//% if isKey
            codec.Key(${keyValue}, ${keyLiteral});
//% end
//% end
//% if record
            ${field}.Describe(codec);
//% end
//% if values
//% if isKey
            ${field} = codec.ListOf<${memberType}>(${field}, Count.${rule}(${count}), () => ${memberInitial}, member =>
            {
                ${memberType} value = codec.${readMember};
                codec.Key(${keyValue}, ${keyLiteral});
                return value;
            });
//% else
            ${field} = codec.ListOf<${memberType}>(
                ${field}, Count.${rule}(${count}), () => ${memberInitial}, member => codec.${readMember});
//% end
//% end
//% if records
            ${field} = codec.ListOf(${field}, Count.${rule}(${count}));
//% end
//% if anyItems
            ${field} = codec.AnyList(${field}, Count.${rule}(${count}));
//% end
//% end
        }
//% each nested

        /// <summary>${recordComment}</summary>
        public sealed class ${recordType} : Part
        {
//% each fields
            /// <summary>${fieldComment}</summary>
            public ${fieldType} ${field} { get; set; } = ${initial};

//% end
            public override void Describe(Codec codec)
            {
//% each steps
//% if openList
                codec.List(${count});
//% end
//% if closeList
                codec.End();
//% end
//% if value
                ${field} = codec.${read};
//% if isKey
                codec.Key(${keyValue}, ${keyLiteral});
//% end
//% end
//% if record
                ${field}.Describe(codec);
//% end
//% if values
//% if isKey
                ${field} = codec.ListOf<${memberType}>(${field}, Count.${rule}(${count}), () => ${memberInitial}, member =>
                {
                    ${memberType} value = codec.${readMember};
                    codec.Key(${keyValue}, ${keyLiteral});
                    return value;
                });
//% else
                ${field} = codec.ListOf<${memberType}>(
                    ${field}, Count.${rule}(${count}), () => ${memberInitial}, member => codec.${readMember});
//% end
//% end
//% if records
                ${field} = codec.ListOf(${field}, Count.${rule}(${count}));
//% end
//% if anyItems
                ${field} = codec.AnyList(${field}, Count.${rule}(${count}));
//% end
//% end
            }
        }
//% end
    }
}
