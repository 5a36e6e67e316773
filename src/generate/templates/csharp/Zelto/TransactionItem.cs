namespace Zelto
{
    /// <summary>An item of a transaction: a name and the value that it has in one message.</summary>
    public sealed class TransactionItem
    {
        /// <summary>The message has no such value.</summary>
        public TransactionItem(string name)
        {
            Name = name;
            Text = "";
            IsMissing = true;
        }

        public TransactionItem(string name, string text)
        {
            Name = name;
            Text = text;
        }

        public TransactionItem(string name, Value value)
        {
            Name = name;
            Text = value.Text;
            IsMissing = value.IsMissing;
        }

        public string Name { get; }

        public string Text { get; }

        public bool IsMissing { get; }

        /// <summary>Null for a text that is no number.</summary>
        public double? Number => Text.StartsWith("+") ? null : Words.DecimalNumber(Text);
    }
}
