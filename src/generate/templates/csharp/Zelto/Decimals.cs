using System;
using System.Globalization;
using System.Numerics;
using System.Text;

namespace Zelto
{
    /// <summary>
    /// Binary fractions as decimal digits and back, both exact: not every runtime gets the last digit right.
    /// </summary>
    internal static class Decimals
    {
        private const int LargestExponent = 400;
        private const int DoubleBits = 53;
        private const int FloatBits = 24;
        private const int LeastExponent = -1074;
        private const int LeastFloatExponent = -149;

        /// <summary>The number that digits with a decimal exponent mean; infinite when it is too large.</summary>
        public static double Nearest(string digits, int exponent)
        {
            BigInteger number = BigInteger.Parse(digits, CultureInfo.InvariantCulture);
            if (number.IsZero || exponent + digits.Length < -LargestExponent)
                return 0;
            if (exponent > LargestExponent)
                return double.PositiveInfinity;
            return exponent >= 0
                ? Nearest(number * BigInteger.Pow(10, exponent), BigInteger.One)
                : Nearest(number, BigInteger.Pow(10, -exponent));
        }

        /// <summary>
        /// The fewest digits that are read back as the same value; the first one counts 10^exponent. The value is
        /// positive and finite.
        /// </summary>
        public static string ShortestDigits(double value, bool isFloat, out int exponent)
        {
            int least = isFloat ? LeastFloatExponent : LeastExponent;
            int precision = isFloat ? FloatBits : DoubleBits;
            int power;
            BigInteger mantissa = MantissaOf(value, precision, least, out power);
            // Just above a power of two the values below are twice as near as those above.
            bool isEdge = mantissa == BigInteger.One << (precision - 1) && power > least;
            int up = Math.Max(power, 0) + (isEdge ? 2 : 1);
            int down = Math.Max(-power, 0) + (isEdge ? 2 : 1);
            var state = new Digits
            {
                Rest = mantissa << up,
                Unit = BigInteger.One << down,
                Below = BigInteger.One << Math.Max(power, 0),
                Above = BigInteger.One << (Math.Max(power, 0) + (isEdge ? 1 : 0)),
                IsEven = mantissa.IsEven
            };
            return state.Shortest((int)Math.Ceiling(Math.Log10(value)), out exponent);
        }

        /// <summary>The value is the mantissa times 2^power.</summary>
        private static BigInteger MantissaOf(double value, int precision, int least, out int power)
        {
            long bits = BitConverter.DoubleToInt64Bits(value);
            int biased = (int)(bits >> 52);
            long mantissa = (bits & 0xFFFFFFFFFFFFFL) | (biased > 0 ? 0x10000000000000L : 0);
            power = Math.Max(biased, 1) - 1075;
            for (; power < least || mantissa >> precision > 0; ++power)
                mantissa >>= 1; // an F4 has these bits clear
            return mantissa;
        }

        private static double Nearest(BigInteger numerator, BigInteger denominator)
        {
            int shift = Math.Min(DoubleBits + 2 - LengthOf(numerator) + LengthOf(denominator), 1 - LeastExponent);
            BigInteger rest;
            BigInteger quotient = BigInteger.DivRem(
                numerator << Math.Max(shift, 0), denominator << Math.Max(-shift, 0), out rest);
            int extra = Math.Max(LengthOf(quotient) - DoubleBits, shift + LeastExponent);
            BigInteger half = BigInteger.One << (extra - 1);
            BigInteger dropped = quotient & ((half << 1) - 1);
            BigInteger mantissa = quotient >> extra;
            int comparison = dropped.CompareTo(half);
            if (comparison > 0 || (comparison == 0 && (!rest.IsZero || !mantissa.IsEven)))
                mantissa += 1;
            return Combined((long)mantissa, extra - shift);
        }

        private static double Combined(long mantissa, int power)
        {
            if (mantissa >> DoubleBits > 0)
            {
                mantissa >>= 1;
                ++power;
            }
            if (power + 1075 >= 2047)
                return double.PositiveInfinity;
            bool isNormal = mantissa >> (DoubleBits - 1) > 0;
            long exponent = isNormal ? power + 1075 : 0;
            return BitConverter.Int64BitsToDouble(exponent << 52 | (mantissa & 0xFFFFFFFFFFFFFL));
        }

        private static int LengthOf(BigInteger number)
        {
            byte[] bytes = number.ToByteArray();
            int length = 8 * bytes.Length;
            for (int at = bytes.Length - 1; at >= 0; --at)
            {
                for (int bit = 7; bit >= 0; --bit, --length)
                {
                    if ((bytes[at] >> bit & 1) != 0)
                        return length;
                }
            }
            return 0;
        }

        /// <summary>What is left of a value while its digits are found, and how far its neighbours are.</summary>
        private sealed class Digits
        {
            public BigInteger Rest;
            public BigInteger Unit;
            public BigInteger Below;
            public BigInteger Above;
            public bool IsEven;

            public string Shortest(int size, out int exponent)
            {
                size = Scale(size);
                exponent = size - 1;
                var digits = new StringBuilder();
                while (true)
                {
                    BigInteger rest;
                    int digit = (int)BigInteger.DivRem(Rest * 10, Unit, out rest);
                    Rest = rest;
                    Below *= 10;
                    Above *= 10;
                    bool mayStop = IsEven ? Rest <= Below : Rest < Below;
                    bool mayRise = IsEven ? Rest + Above >= Unit : Rest + Above > Unit;
                    if (mayStop || mayRise)
                        return digits.Append(Last(digit, mayStop, mayRise)).ToString().TrimEnd('0');
                    digits.Append(digit);
                }
            }

            /// <summary>Makes the value one of 0.1 to 1 times 10^size.</summary>
            private int Scale(int size)
            {
                if (size >= 0)
                    Unit *= BigInteger.Pow(10, size);
                else
                    Enlarge(BigInteger.Pow(10, -size));
                while (IsEven ? Rest + Above >= Unit : Rest + Above > Unit)
                {
                    Unit *= 10;
                    ++size;
                }
                while (IsEven ? (Rest + Above) * 10 < Unit : (Rest + Above) * 10 <= Unit)
                {
                    Enlarge(10);
                    --size;
                }
                return size;
            }

            private void Enlarge(BigInteger factor)
            {
                Rest *= factor;
                Below *= factor;
                Above *= factor;
            }

            private int Last(int digit, bool mayStop, bool mayRise)
            {
                if (mayStop != mayRise)
                    return mayRise ? digit + 1 : digit;
                int comparison = (Rest * 2).CompareTo(Unit);
                return comparison > 0 || (comparison == 0 && digit % 2 == 1) ? digit + 1 : digit;
            }
        }
    }
}
