using System.Collections.Generic;

namespace Zelto
{
    /// <summary>A data item of any format.</summary>
    public sealed class Any
    {
        public Format Format { get; set; } = Format.A;

        /// <summary>
        /// The bytes of an item that is no list, one a character; numbers have the most significant byte first.
        /// </summary>
        public string Data { get; set; } = "";

        /// <summary>The members of a list.</summary>
        public List<Any> Members { get; } = new List<Any>();

        public static Any Text(string characters)
        {
            return new Any { Data = characters };
        }

        /// <summary>The bits of the values of an item of numbers.</summary>
        internal long[] Bits()
        {
            int width = Format.Width();
            var bits = new long[width == 0 ? 0 : Data.Length / width];
            for (int index = 0; index < bits.Length; ++index)
            {
                long value = 0;
                for (int at = index * width; at < (index + 1) * width; ++at)
                    value = value << 8 | (byte)Data[at];
                bits[index] = Numbers.Extended(Format, value);
            }
            return bits;
        }
    }
}
