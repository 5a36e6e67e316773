using System;
using System.Collections.Generic;

namespace Zelto
{
    /// <summary>
    /// Two transports that are connected to each other, for tests and for work without a link. Messages wait until
    /// <see cref="Deliver"/> is called.
    /// </summary>
    public sealed class Loopback
    {
        private readonly Queue<Action> messages = new Queue<Action>();

        public Loopback()
        {
            Host = new End(this);
            Equipment = new End(this);
        }

        /// <summary>Called for each message that is sent: whether to the host, its header and its body.</summary>
        public event Action<bool, Header, byte[]> Sent;

        public Transport Host { get; }

        public Transport Equipment { get; }

        /// <summary>Delivers all messages, including those that are sent meanwhile. Returns their number.</summary>
        public int Deliver()
        {
            int count = 0;
            for (; messages.Count > 0; ++count)
                messages.Dequeue()();
            return count;
        }

        private void Take(End from, Header header, byte[] body)
        {
            bool toHost = from == Equipment;
            Transport to = toHost ? Host : Equipment;
            Sent?.Invoke(toHost, header, body);
            messages.Enqueue(() => to.Receive(header, body));
        }

        private sealed class End : Transport
        {
            private readonly Loopback loopback;

            public End(Loopback loopback)
            {
                this.loopback = loopback;
            }

            public override void Send(Header header, byte[] body)
            {
                loopback.Take(this, header, body);
            }
        }
    }
}
