using System.Text;

namespace Zelto
{
    /// <summary>
    /// Reads the bytes of a message into its fields. After the first item that is not as defined nothing is read.
    /// </summary>
    internal sealed class Decoder : Codec
    {
        private const int Deepest = 1000;

        private readonly byte[] bytes;
        private int at;
        private bool isGood = true;
        private int depth;

        // Of the item whose head was read last; the length of a list is the number of its members.
        private Format format = Format.L;
        private int length;

        public Decoder(byte[] bytes)
        {
            this.bytes = bytes;
        }

        /// <summary>Whether all was as defined, and nothing is left.</summary>
        public bool IsDone => isGood && at == bytes.Length;

        internal override bool IsGood => isGood;

        internal override bool IsReading => true;

        public override void List(int members)
        {
            ReadHead();
            isGood = isGood && format == Format.L && length == members;
        }

        public override void End()
        {
        }

        public override Any X(Any any)
        {
            ReadHead();
            any.Format = format;
            any.Members.Clear();
            any.Data = "";
            if (isGood && format == Format.L && depth < Deepest)
            {
                ++depth;
                for (int left = length; isGood && left > 0; --left)
                    any.Members.Add(X(new Any()));
                --depth;
            }
            else
            {
                isGood = isGood && format != Format.L && HasData();
                any.Data = isGood ? ReadText() : "";
            }
            return any;
        }

        public override void Key(Value value, string expected)
        {
            isGood = isGood && value.Is(expected);
        }

        internal override int BeginList(int members, Count count)
        {
            ReadHead();
            isGood = isGood && format == Format.L && count.Allows(length);
            return isGood ? length : 0;
        }

        internal override int Begin(Format expected, int values, Count count)
        {
            ReadHead();
            isGood = isGood && format == expected && HasData() && count.Allows(length / expected.Width());
            return isGood ? length / expected.Width() : values;
        }

        internal override long Next(Format expected, long bits)
        {
            if (!isGood)
                return bits;
            long value = 0;
            for (int left = expected.Width(); left > 0; --left)
                value = value << 8 | bytes[at++];
            return Numbers.Extended(expected, value);
        }

        internal override string Text(Format expected, string value, Count count)
        {
            ReadHead();
            isGood = isGood && format == expected && HasData() && count.Allows(length);
            return isGood ? ReadText() : value;
        }

        private bool HasData()
        {
            return length <= bytes.Length - at && length % format.Width() == 0;
        }

        private string ReadText()
        {
            var text = new StringBuilder(length);
            for (int left = length; left > 0; --left)
                text.Append((char)bytes[at++]);
            return text.ToString();
        }

        private void ReadHead()
        {
            int lengthBytes = isGood && at < bytes.Length ? bytes[at] & 3 : 0;
            if (lengthBytes == 0 || bytes.Length - at <= lengthBytes || ((Format)(bytes[at] >> 2)).Word() == null)
            {
                isGood = false;
                return;
            }
            format = (Format)(bytes[at++] >> 2);
            for (length = 0; lengthBytes > 0; --lengthBytes)
                length = length << 8 | bytes[at++];
        }
    }
}
