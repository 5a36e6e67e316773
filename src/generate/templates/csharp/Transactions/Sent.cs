//% if hasRecords
using Zelto;

//% end
namespace ${package}.Transactions
{
    /// <summary>Sent as ${head}.</summary>
    public static class ${type}
    {
        public const string Name = ${nameLiteral};

        /// <summary>The message with the values of the model.</summary>
        public static Messages.${message} Message()
        {
            var message = new Messages.${message}();
//% each assignments
            ${assignment}
//% end
            return message;
        }
    }
}
