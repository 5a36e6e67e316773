namespace Zelto
{
    /// <summary>The formats of SECS-II data items.</summary>
    public enum Format
    {
        L = 0x00,
        B = 0x08,
        Boolean = 0x09,
        A = 0x10,
        J = 0x11,
        C2 = 0x12,
        I8 = 0x18,
        I1 = 0x19,
        I2 = 0x1A,
        I4 = 0x1C,
        F8 = 0x20,
        F4 = 0x24,
        U8 = 0x28,
        U1 = 0x29,
        U2 = 0x2A,
        U4 = 0x2C
    }

    internal static class Formats
    {
        /// <summary>The bytes of one value; 0 for a list.</summary>
        public static int Width(this Format format)
        {
            switch (format)
            {
                case Format.L:
                    return 0;
                case Format.I2:
                case Format.U2:
                case Format.C2:
                    return 2;
                case Format.I4:
                case Format.U4:
                case Format.F4:
                    return 4;
                case Format.I8:
                case Format.U8:
                case Format.F8:
                    return 8;
                default:
                    return 1;
            }
        }

        /// <summary>The word of a format in SML; null for a code that is not in use.</summary>
        public static string Word(this Format format)
        {
            switch (format)
            {
                case Format.L: return "L";
                case Format.B: return "B";
                case Format.Boolean: return "BOOLEAN";
                case Format.A: return "A";
                case Format.J: return "J";
                case Format.C2: return "C2";
                case Format.I8: return "I8";
                case Format.I1: return "I1";
                case Format.I2: return "I2";
                case Format.I4: return "I4";
                case Format.F8: return "F8";
                case Format.F4: return "F4";
                case Format.U8: return "U8";
                case Format.U1: return "U1";
                case Format.U2: return "U2";
                case Format.U4: return "U4";
                default: return null;
            }
        }

        public static bool IsText(this Format format)
        {
            return format == Format.A || format == Format.J || format == Format.C2;
        }

        public static bool IsSigned(this Format format)
        {
            return format == Format.I1 || format == Format.I2 || format == Format.I4 || format == Format.I8;
        }
    }
}
