using System.Text;

namespace Zelto
{
    /// <summary>Writes the fields of a message as SML.</summary>
    internal sealed class SmlWriter : Codec
    {
        private readonly StringBuilder text = new StringBuilder();
        private int depth;

        public string Sml => text.ToString();

        public override void List(int members)
        {
            Line("<L [").Append(members).Append("]\n");
            ++depth;
        }

        public override void End()
        {
            --depth;
            Line(">\n");
        }

        public override Any X(Any any)
        {
            if (any.Format == Format.L)
            {
                List(any.Members.Count);
                any.Members.ForEach(member => X(member));
                End();
            }
            else if (any.Format.IsText())
            {
                Quoted(any.Format, any.Data);
            }
            else
            {
                Open(any.Format);
                foreach (long bits in any.Bits())
                    Next(any.Format, bits);
                Finish();
            }
            return any;
        }

        internal override int BeginList(int members, Count count)
        {
            List(members);
            return members;
        }

        internal override int Begin(Format format, int values, Count count)
        {
            Open(format);
            return values;
        }

        internal override long Next(Format format, long bits)
        {
            text.Append(' ').Append(Numbers.Text(format, Numbers.Extended(format, bits)));
            return bits;
        }

        internal override void Finish()
        {
            text.Append(">\n");
        }

        internal override string Text(Format format, string value, Count count)
        {
            Quoted(format, value);
            return value;
        }

        /// <summary>Printable characters in quotation marks, all others as character codes.</summary>
        private void Quoted(Format format, string value)
        {
            Open(format);
            bool isOpen = false;
            foreach (char character in value)
            {
                bool isPrintable = character >= ' ' && character <= '~' && character != '"';
                if (isPrintable != isOpen)
                    text.Append(isOpen ? "\"" : " \"");
                isOpen = isPrintable;
                if (isPrintable)
                    text.Append(character);
                else
                    text.Append(' ').Append((int)character);
            }
            text.Append(isOpen ? "\">\n" : value.Length == 0 ? " \"\">\n" : ">\n");
        }

        private void Open(Format format)
        {
            Line("<").Append(format.Word());
        }

        private StringBuilder Line(string words)
        {
            return text.Append(' ', 2 * depth).Append(words);
        }
    }
}
