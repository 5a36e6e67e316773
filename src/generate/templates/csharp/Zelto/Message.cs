namespace Zelto
{
    /// <summary>A SECS message: its fields are those of the class.</summary>
    public abstract class Message : Part
    {
        /// <summary>The bytes of the message.</summary>
        /// <exception cref="MisfitException">A count is not as defined.</exception>
        public byte[] Encode()
        {
            var encoder = new Encoder();
            Describe(encoder);
            return encoder.Bytes;
        }

        /// <summary>The items as SML, each on a line of its own.</summary>
        public string ToSml()
        {
            var writer = new SmlWriter();
            Describe(writer);
            return writer.Sml;
        }

        public override string ToString()
        {
            return ToSml();
        }

        /// <summary>Reads the fields of a message; null when the bytes are not those of the message.</summary>
        protected static T Decode<T>(byte[] body, T message) where T : Message
        {
            var decoder = new Decoder(body);
            message.Describe(decoder);
            return decoder.IsDone ? message : null;
        }
    }
}
