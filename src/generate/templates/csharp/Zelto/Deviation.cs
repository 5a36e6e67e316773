namespace Zelto
{
    /// <summary>A transaction that does not follow a sequence that has begun.</summary>
    public sealed class Deviation
    {
        public Deviation(string transaction, string sequence, bool restarts)
        {
            Transaction = transaction;
            Sequence = sequence;
            Restarts = restarts;
        }

        public string Transaction { get; }

        public string Sequence { get; }

        /// <summary>Whether the sequence begins again; otherwise it goes on after this transaction.</summary>
        public bool Restarts { get; }
    }
}
