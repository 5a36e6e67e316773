using System;
using System.Globalization;

namespace Zelto
{
    /// <summary>Numbers as the bits that a message has of them: the lowest bytes of a long, and what they mean.</summary>
    internal static class Numbers
    {
        private static readonly CultureInfo Plain = CultureInfo.InvariantCulture;

        /// <summary>The bits of a value with those above it: copies of the sign, or zeros.</summary>
        public static long Extended(Format format, long bits)
        {
            int unused = 64 - 8 * format.Width();
            return format.IsSigned() ? bits << unused >> unused : (long)((ulong)bits << unused >> unused);
        }

        public static long BitsOf(float value) => BitConverter.ToUInt32(BitConverter.GetBytes(value), 0);

        public static long BitsOf(double value) => BitConverter.DoubleToInt64Bits(value);

        public static float ToFloat(long bits) => BitConverter.ToSingle(BitConverter.GetBytes((uint)bits), 0);

        public static double ToDouble(long bits) => BitConverter.Int64BitsToDouble(bits);

        /// <summary>The shortest text that reads back as the same value; truth values as "True" and "False".</summary>
        public static string Text(Format format, long bits)
        {
            switch (format)
            {
                case Format.Boolean:
                    return bits != 0 ? "True" : "False";
                case Format.F4:
                    return Text(ToFloat(bits), true);
                case Format.F8:
                    return Text(ToDouble(bits), false);
                case Format.U8:
                    return ((ulong)bits).ToString(Plain);
                default:
                    return bits.ToString(Plain);
            }
        }

        /// <summary>Whether a value is the one that a word means.</summary>
        public static bool EqualsWord(Format format, long bits, string word)
        {
            switch (format)
            {
                case Format.Boolean:
                    return bits != 0 ? IsOneOf(word, "TRUE", "T") : IsOneOf(word, "FALSE", "F");
                case Format.F4:
                    double? single = Words.DecimalNumber(word);
                    return single != null && (float)single.Value == ToFloat(bits);
                case Format.F8:
                    return Words.DecimalNumber(word) == ToDouble(bits);
                default:
                    return EqualsWhole(format, bits, word);
            }
        }

        private static bool EqualsWhole(Format format, long bits, string word)
        {
            bool isNegative = format.IsSigned() && bits < 0;
            bool hasMinus;
            ulong magnitude;
            if (Words.WholeNumber(word, out hasMinus, out magnitude))
                return (hasMinus && magnitude != 0) == isNegative && magnitude == (ulong)(isNegative ? -bits : bits);
            return Words.DecimalNumber(word) == (format == Format.U8 ? (double)(ulong)bits : bits);
        }

        private static bool IsOneOf(string word, string name, string letter)
        {
            return word.Equals(name, StringComparison.OrdinalIgnoreCase)
                || word.Equals(letter, StringComparison.OrdinalIgnoreCase);
        }

        private static string Text(double value, bool isFloat)
        {
            if (double.IsNaN(value))
                return "NaN";
            if (double.IsInfinity(value))
                return value < 0 ? "-Infinity" : "Infinity";
            string sign = BitsOf(value) < 0 ? "-" : "";
            double size = Math.Abs(value);
            if (size == 0)
                return sign + "0";
            int exponent;
            string digits = Decimals.ShortestDigits(size, isFloat, out exponent);
            string whole = Fixed(size, digits, exponent);
            string scientific = Scientific(digits, exponent);
            return sign + (whole.Length <= scientific.Length ? whole : scientific);
        }

        private static string Fixed(double size, string digits, int exponent)
        {
            if (exponent < 0)
                return "0." + new string('0', -exponent - 1) + digits;
            if (digits.Length > exponent + 1)
                return digits.Substring(0, exponent + 1) + "." + digits.Substring(exponent + 1);
            return exponent > 22 ? new string('0', exponent) : Whole(size);
        }

        /// <summary>A whole number of less than 10^23 with all its digits.</summary>
        private static string Whole(double size)
        {
            if (size < long.MaxValue)
                return ((long)size).ToString(Plain);
            long bits = BitsOf(size);
            decimal whole = (bits & 0xFFFFFFFFFFFFFL) | 0x10000000000000L;
            for (long doublings = (bits >> 52) - 1075; doublings > 0; --doublings)
                whole *= 2;
            return whole.ToString(Plain);
        }

        private static string Scientific(string digits, int exponent)
        {
            return digits.Substring(0, 1) + (digits.Length > 1 ? "." + digits.Substring(1) : "")
                + "e" + (exponent < 0 ? "-" : "+") + Math.Abs(exponent).ToString("00", Plain);
        }
    }
}
