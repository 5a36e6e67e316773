using System;
using System.IO;

namespace Zelto
{
    /// <summary>Writes the fields of a message as the bytes of SECS-II items.</summary>
    internal sealed class Encoder : Codec
    {
        private const long Longest = 0xFFFFFF;

        private readonly MemoryStream bytes = new MemoryStream();

        public byte[] Bytes => bytes.ToArray();

        public override void List(int members)
        {
            Head(Format.L, members);
        }

        public override void End()
        {
        }

        public override Any X(Any any)
        {
            bool isList = any.Format == Format.L;
            Head(any.Format, isList ? any.Members.Count : any.Data.Length);
            if (!isList)
                Append(any.Data);
            any.Members.ForEach(member => X(member));
            return any;
        }

        internal override int BeginList(int members, Count count)
        {
            Require(count, members, Format.L);
            Head(Format.L, members);
            return members;
        }

        internal override int Begin(Format format, int values, Count count)
        {
            Require(count, values, format);
            Head(format, (long)values * format.Width());
            return values;
        }

        internal override long Next(Format format, long bits)
        {
            Append(bits, format.Width());
            return bits;
        }

        /// <summary>Blanks fill a text that is shorter than its fixed count.</summary>
        internal override string Text(Format format, string value, Count count)
        {
            int missing = count.IsExact ? Math.Max(0, count.Number - value.Length) : 0;
            Require(count, value.Length + missing, format);
            Head(format, value.Length + missing);
            Append(value);
            Append(new string(' ', missing));
            return value;
        }

        private static void Require(Count count, int found, Format format)
        {
            if (!count.Allows(found))
                throw new MisfitException(format.Word() + " of " + found + ", where the definition has "
                    + (count.IsExact ? "" : "at most ") + count.Number);
        }

        private void Head(Format format, long length)
        {
            if (length > Longest)
                throw new MisfitException("an item is longer than a message can express");
            int lengthBytes = length > 0xFFFF ? 3 : length > 0xFF ? 2 : 1;
            bytes.WriteByte((byte)((int)format << 2 | lengthBytes));
            Append(length, lengthBytes);
        }

        private void Append(string characters)
        {
            foreach (char character in characters)
                bytes.WriteByte((byte)character);
        }

        private void Append(long value, int width)
        {
            for (int shift = 8 * (width - 1); shift >= 0; shift -= 8)
                bytes.WriteByte((byte)(value >> shift));
        }
    }
}
