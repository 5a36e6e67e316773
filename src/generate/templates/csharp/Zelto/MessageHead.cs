namespace Zelto
{
    /// <summary>What the definition of a message fixes of its header.</summary>
    public sealed class MessageHead
    {
        public MessageHead(string name, byte stream, byte function, bool expectsReply)
        {
            Name = name;
            Stream = stream;
            Function = function;
            ExpectsReply = expectsReply;
        }

        public string Name { get; }

        public byte Stream { get; }

        public byte Function { get; }

        public bool ExpectsReply { get; }
    }
}
