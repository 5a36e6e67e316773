using System;

namespace Zelto
{
    /// <summary>
    /// The way of messages to the other side. An HSMS library fills it in some ten lines: <see cref="Send"/> passes the
    /// header and the body to the library, and whatever the library receives is passed to <see cref="Receive"/>.
    /// </summary>
    public abstract class Transport
    {
        internal Action<Header, byte[]> Receiver { get; set; }

        public abstract void Send(Header header, byte[] body);

        /// <summary>To be called for each message that arrives.</summary>
        public void Receive(Header header, byte[] body)
        {
            Receiver?.Invoke(header, body);
        }
    }
}
