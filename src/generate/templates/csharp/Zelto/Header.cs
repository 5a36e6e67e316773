namespace Zelto
{
    /// <summary>The header of a message.</summary>
    public sealed class Header
    {
        public const int Size = 10;

        public Header(ushort session, byte stream, byte function, bool expectsReply, uint system)
        {
            Session = session;
            Stream = stream;
            Function = function;
            ExpectsReply = expectsReply;
            System = system;
        }

        /// <summary>The device id.</summary>
        public ushort Session { get; }

        public byte Stream { get; }

        public byte Function { get; }

        /// <summary>The W-bit.</summary>
        public bool ExpectsReply { get; }

        /// <summary>Ties a reply to its primary message.</summary>
        public uint System { get; }

        public bool IsPrimary => Function % 2 == 1;

        /// <summary>The header of function 0, which ends the transaction of this message without an answer.</summary>
        public Header Abort() => new Header(Session, Stream, 0, false, System);

        /// <summary>The ten bytes on the link.</summary>
        public byte[] Bytes() => new byte[]
        {
            (byte)(Session >> 8), (byte)Session, (byte)(Stream | (ExpectsReply ? 0x80 : 0)), Function, 0, 0,
            (byte)(System >> 24), (byte)(System >> 16), (byte)(System >> 8), (byte)System
        };

        /// <summary>Null when there are fewer than ten bytes, or when they are those of a control message.</summary>
        public static Header FromBytes(byte[] bytes)
        {
            if (bytes.Length < Size || bytes[4] != 0 || bytes[5] != 0)
                return null;
            uint system = (uint)bytes[6] << 24 | (uint)bytes[7] << 16 | (uint)bytes[8] << 8 | bytes[9];
            return new Header(
                (ushort)(bytes[0] << 8 | bytes[1]), (byte)(bytes[2] & 0x7F), bytes[3], bytes[2] > 0x7F, system);
        }

        public override string ToString()
        {
            return "S" + Stream + "F" + Function + (ExpectsReply ? " W" : "");
        }
    }
}
