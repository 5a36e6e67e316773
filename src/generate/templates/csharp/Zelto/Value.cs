using System;
using System.Linq;

namespace Zelto
{
    /// <summary>The value of a data item while it is compared or becomes a transaction item.</summary>
    public sealed class Value
    {
        /// <summary>The message has no such item.</summary>
        public static readonly Value Missing = new Value(Format.L, null, null);

        /// <summary>A list, which has no value of its own.</summary>
        public static readonly Value List = new Value(Format.L, null, null);

        private readonly Format format;
        private readonly string text;
        private readonly long[] bits;

        private Value(Format format, string text, long[] bits)
        {
            this.format = format;
            this.text = text;
            this.bits = bits;
        }

        public bool IsMissing => this == Missing;

        /// <summary>Characters, or numbers separated by blanks.</summary>
        public string Text =>
            text ?? (bits == null ? "" : string.Join(" ", bits.Select(each => Numbers.Text(format, each))));

        public static Value Of(string text) => new Value(Format.A, text, null);

        public static Value Of(Any any)
        {
            if (any.Format == Format.L)
                return List;
            return any.Format.IsText() ? Of(any.Data) : new Value(any.Format, null, any.Bits());
        }

        public static Value Of(Format format, long value) => new Value(format, null, new[] { value });

        public static Value Of(Format format, ulong value) => Of(format, (long)value);

        public static Value Of(Format format, bool value) => Of(format, value ? 1L : 0L);

        public static Value Of(Format format, float value) => Of(format, Numbers.BitsOf(value));

        public static Value Of(Format format, double value) => Of(format, Numbers.BitsOf(value));

        public static Value Of(Format format, bool[] values) => Of(format, values, each => each ? 1 : 0);

        public static Value Of(Format format, byte[] values) => Of(format, values, each => each);

        public static Value Of(Format format, sbyte[] values) => Of(format, values, each => each);

        public static Value Of(Format format, short[] values) => Of(format, values, each => each);

        public static Value Of(Format format, ushort[] values) => Of(format, values, each => each);

        public static Value Of(Format format, int[] values) => Of(format, values, each => each);

        public static Value Of(Format format, uint[] values) => Of(format, values, each => each);

        public static Value Of(Format format, long[] values) => Of(format, values, each => each);

        public static Value Of(Format format, ulong[] values) => Of(format, values, each => (long)each);

        public static Value Of(Format format, float[] values) => Of(format, values, Numbers.BitsOf);

        public static Value Of(Format format, double[] values) => Of(format, values, Numbers.BitsOf);

        /// <summary>
        /// Whether the item is in the message and has this value. Numbers are compared as numbers, one by one; F4 with
        /// the precision of F4; truth values without regard to case.
        /// </summary>
        public bool Is(string other)
        {
            if (text != null)
                return string.Equals(text, other, StringComparison.Ordinal);
            string[] words = other.Split(new[] { ' ' }, StringSplitOptions.RemoveEmptyEntries);
            if (bits == null || bits.Length == 0 || words.Length != bits.Length)
                return false;
            for (int index = 0; index < words.Length; ++index)
            {
                if (!Numbers.EqualsWord(format, bits[index], words[index]))
                    return false;
            }
            return true;
        }

        private static Value Of<T>(Format format, T[] values, Func<T, long> bitsOf)
        {
            return new Value(format, null, values.Select(bitsOf).ToArray());
        }
    }
}
