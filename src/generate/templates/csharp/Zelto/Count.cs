namespace Zelto
{
    /// <summary>How many values an item has: exactly the number, or at most the number.</summary>
    public struct Count
    {
        private Count(int number, bool isExact)
        {
            Number = number;
            IsExact = isExact;
        }

        public int Number { get; }

        public bool IsExact { get; }

        public static Count Exactly(int number)
        {
            return new Count(number, true);
        }

        public static Count UpTo(int number)
        {
            return new Count(number, false);
        }

        public bool Allows(int values)
        {
            return IsExact ? values == Number : values <= Number;
        }
    }
}
