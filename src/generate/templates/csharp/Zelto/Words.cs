using System;
using System.Globalization;
using System.Text.RegularExpressions;

namespace Zelto
{
    /// <summary>The words that values are compared with.</summary>
    public static class Words
    {
        /// <summary>A text that no message carries.</summary>
        public const string NoText = "\0\uFFFF";

        private static readonly Regex Decimal =
            new Regex(@"^\+?(-?)(?:([0-9]+)\.?([0-9]*)|\.([0-9]+))(?:[eE]([+-]?[0-9]+))?\z");

        private static readonly Regex Whole =
            new Regex(@"^([+-]?)(?:0[xX]([0-9a-fA-F]+)|0[bB]([01]+)|0[oO]([0-7]+)|([0-9]+))\z");

        private static readonly uint[] Bases = { 16, 2, 8, 10 };

        /// <summary>"12", "-3", "+4", "0x1F", "0b101", "0o17" with at most 64 bits; false for anything else.</summary>
        internal static bool WholeNumber(string word, out bool hasMinus, out ulong magnitude)
        {
            Match match = Whole.Match(word);
            hasMinus = match.Groups[1].Value == "-";
            magnitude = 0;
            for (int index = 0; index < Bases.Length; ++index)
            {
                if (match.Groups[index + 2].Success)
                    return Magnitude(match.Groups[index + 2].Value, Bases[index], out magnitude);
            }
            return false;
        }

        /// <summary>A decimal number, with or without a fraction and an exponent; null for anything else.</summary>
        internal static double? DecimalNumber(string word)
        {
            Match match = Decimal.Match(word);
            if (!match.Success)
                return null;
            string fraction = match.Groups[3].Value + match.Groups[4].Value;
            string digits = (match.Groups[2].Value + fraction).TrimStart('0');
            double size = digits.Length == 0 ? 0 : Decimals.Nearest(digits, ExponentOf(match) - fraction.Length);
            if (double.IsInfinity(size) || (size == 0 && digits.Length > 0))
                return null;
            return match.Groups[1].Length > 0 ? -size : size;
        }

        private static int ExponentOf(Match match)
        {
            const int Most = 100000;
            int exponent;
            if (!match.Groups[5].Success)
                return 0;
            bool isSmall = int.TryParse(match.Groups[5].Value, NumberStyles.AllowLeadingSign,
                CultureInfo.InvariantCulture, out exponent);
            if (!isSmall)
                return match.Groups[5].Value.StartsWith("-") ? -Most : Most;
            return Math.Max(-Most, Math.Min(Most, exponent));
        }

        private static bool Magnitude(string digits, uint numberBase, out ulong magnitude)
        {
            magnitude = 0;
            foreach (char digit in digits)
            {
                uint value = digit <= '9' ? digit - (uint)'0' : (digit | 0x20U) - 'a' + 10;
                if (magnitude > (ulong.MaxValue - value) / numberBase)
                    return false;
                magnitude = magnitude * numberBase + value;
            }
            return true;
        }
    }
}
