using System.Collections.Generic;
using Zelto;

namespace ${package}.Transactions
{
    /// <summary>Received by ${head}, ${comment}</summary>
    public sealed class ${type}
    {
        public const string Name = ${nameLiteral};

        /// <summary>Whether the transaction is to be reported.</summary>
        public const bool IsReported = ${report};

        public ${type}(Header header, Messages.${message} message)
        {
            Header = header;
            Message = message;
            Items = new TransactionItem[]
            {
//% each items
//% if more
                ${compute}(message),
//% else
                ${compute}(message)
//% end
//% end
            };
        }

        public Header Header { get; }

        public Messages.${message} Message { get; }

        /// <summary>The items of the transaction, in the order of the model.</summary>
        public IReadOnlyList<TransactionItem> Items { get; }
//% each items

        /// <summary>${itemComment}</summary>
        public TransactionItem ${item} => Items[${itemIndex}];
//% end

        /// <summary>Whether a message is this transaction, as far as its items tell.</summary>
        public static bool Applies(Messages.${message} message)
        {
            return ${condition};
        }
//% each values

        /// <summary>${address}</summary>
        private static Value ${function}(Messages.${message} message)
        {
//% if isFound
//% each steps
            if (${list}.Count < ${index})
                return Value.Missing;
            var ${member} = ${list}[${place}];
//% end
//% if isList
            return Value.List;
//% else
            return ${value};
//% end
//% else
            return Value.Missing;
//% end
        }
//% end
//% each items

        private static TransactionItem ${compute}(Messages.${message} message)
        {
//% each lines
${line}
//% end
//% if isOpen
//% if hasSource
            Value source = ${source};
            if (!source.IsMissing)
                return new TransactionItem(${nameLiteral}, source);
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
}
