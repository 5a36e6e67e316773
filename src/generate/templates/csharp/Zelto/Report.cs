using System.Collections.Generic;

namespace Zelto
{
    /// <summary>A received message in words, for logs and for whatever treats all transactions alike.</summary>
    public sealed class Report
    {
        public Report(
            Header header, string message, string transaction, IReadOnlyList<TransactionItem> items, bool isReported)
        {
            Header = header;
            Message = message;
            Transaction = transaction;
            Items = items;
            IsReported = isReported;
        }

        public Header Header { get; }

        public string Message { get; }

        public string Transaction { get; }

        public IReadOnlyList<TransactionItem> Items { get; }

        /// <summary>Whether the transaction is to be reported.</summary>
        public bool IsReported { get; }
    }
}
