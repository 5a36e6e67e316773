using System;
using System.Collections.Generic;
using System.Diagnostics;
using System.Linq;

namespace Zelto
{
    /// <summary>
    /// One side of a link: what all plug-ins have in common. Handlers run inside <see cref="Transport.Receive"/>.
    /// </summary>
    public abstract class Link
    {
        private static readonly Stopwatch Clock = Stopwatch.StartNew();
        private static readonly byte[] HeaderItem = { 0x21, Header.Size };

        private readonly Transport transport;
        private readonly Side side;
        private readonly SortedDictionary<uint, Open> open = new SortedDictionary<uint, Open>();
        private uint nextSystem = 1;

        // The message whose handler runs, and its name when the driver answers it by itself.
        private Header current;
        private string answerable;
        private bool isAnswered;

        protected Link(Transport transport, Side side, IEnumerable<Sequence> sequences)
        {
            this.transport = transport;
            this.side = side;
            Sequences = new SequenceTracker(sequences);
            transport.Receiver = Receive;
        }

        /// <summary>A clock that goes on at the same pace when the time of day is set.</summary>
        public static TimeSpan Now => Clock.Elapsed;

        public ushort DeviceId { get; set; }

        /// <summary>The time that the other side has for a reply.</summary>
        public TimeSpan ReplyTimeout { get; set; } = TimeSpan.FromSeconds(45);

        /// <summary>The number of primary messages that wait for their reply.</summary>
        public int OpenTransactions => open.Count;

        public SequenceTracker Sequences { get; }

        /// <summary>Ends the transactions whose reply is overdue. To be called every second or so.</summary>
        public void CheckTimeouts()
        {
            CheckTimeouts(Now);
        }

        /// <summary>The same at another time of the clock.</summary>
        public void CheckTimeouts(TimeSpan now)
        {
            foreach (Open overdue in open.Values.Where(each => now - each.Since >= ReplyTimeout).ToList())
            {
                open.Remove(overdue.Primary.System);
                SendError(9, overdue.Primary);
                OnTimeout(overdue.Primary);
            }
        }

        /// <summary>Decodes a message and calls its handler.</summary>
        protected abstract Finding Dispatch(Header header, byte[] body);

        /// <summary>
        /// Answers a primary message that the driver answers by itself; false when there is no such answer.
        /// </summary>
        protected abstract bool Answer(Header primary, string message);

        protected virtual void OnReceived(Report report)
        {
        }

        /// <summary>A transaction does not follow the sequences.</summary>
        protected virtual void OnDeviation(Deviation deviation)
        {
        }

        /// <summary>
        /// A message that no transaction takes. It is answered already where SECS-II has an answer for it.
        /// </summary>
        protected virtual void OnUnknown(Header header, byte[] body, Finding finding)
        {
        }

        /// <summary>The other side ended a transaction by function 0.</summary>
        protected virtual void OnAborted(Header primary)
        {
        }

        protected virtual void OnTimeout(Header primary)
        {
        }

        /// <summary>A message of stream 9. The message that it complains of may be null.</summary>
        protected virtual void OnError(Header error, Header primary)
        {
        }

        /// <summary>A reply without its primary message.</summary>
        protected virtual void OnStrayReply(Header header)
        {
        }

        /// <summary>Sends a primary message; returns its system bytes.</summary>
        protected uint SendPrimary(MessageHead head, byte[] body, string transaction)
        {
            var header = new Header(DeviceId, head.Stream, head.Function, head.ExpectsReply, nextSystem++);
            if (header.ExpectsReply)
                open[header.System] = new Open { Primary = header, Since = Now };
            Track(transaction);
            transport.Send(header, body);
            return header.System;
        }

        /// <summary>
        /// Sends the reply to a primary message. The transaction is null for a reply of the driver.
        /// </summary>
        protected void SendReply(Header primary, MessageHead head, byte[] body, string transaction)
        {
            if (current != null && current.System == primary.System)
                isAnswered = true;
            Track(transaction);
            transport.Send(new Header(primary.Session, head.Stream, head.Function, false, primary.System), body);
        }

        protected void Track(string transaction)
        {
            if (transaction != null)
                Sequences.Take(transaction).ForEach(OnDeviation);
        }

        protected void SetAnswerable(string message)
        {
            answerable = message;
        }

        private static byte FunctionFor(Finding finding)
        {
            switch (finding)
            {
                case Finding.UnknownStream:
                    return 3;
                case Finding.UnknownFunction:
                    return 5;
                case Finding.IllegalData:
                    return 7;
                default:
                    return 0;
            }
        }

        private void Receive(Header header, byte[] body)
        {
            if (header.Session != DeviceId)
            {
                Refuse(header, body, Finding.UnknownStream, 1);
                return;
            }
            if (header.Stream == 9)
                TakeError(header, body);
            else if (header.Function == 0)
                TakeAbort(header);
            else if (!header.IsPrimary && !open.Remove(header.System))
                OnStrayReply(header);
            current = header;
            isAnswered = false;
            answerable = null;
            Finding finding = Dispatch(header, body);
            if (finding == Finding.Taken || finding == Finding.NoTransaction)
                AnswerByItself(header);
            if (finding != Finding.Taken && header.Stream != 9 && header.Function != 0)
                Refuse(header, body, finding, FunctionFor(finding));
            current = null;
        }

        private void AnswerByItself(Header header)
        {
            if (header.IsPrimary && header.ExpectsReply && !isAnswered && answerable != null)
                isAnswered = Answer(header, answerable);
        }

        /// <summary>An equipment answers by stream 9, a host by function 0.</summary>
        private void Refuse(Header header, byte[] body, Finding finding, byte function)
        {
            if (side == Side.Equipment && function != 0)
                SendError(function, header);
            else if (side == Side.Host && function != 0 && header.IsPrimary && header.ExpectsReply)
                transport.Send(header.Abort(), new byte[0]);
            OnUnknown(header, body, finding);
        }

        private void SendError(byte function, Header about)
        {
            if (side != Side.Equipment)
                return;
            byte[] body = HeaderItem.Concat(about.Bytes()).ToArray();
            transport.Send(new Header(DeviceId, 9, function, false, nextSystem++), body);
        }

        private void TakeError(Header header, byte[] body)
        {
            Header primary = null;
            if (body.Take(HeaderItem.Length).SequenceEqual(HeaderItem))
                primary = Header.FromBytes(body.Skip(HeaderItem.Length).ToArray());
            if (primary != null)
                open.Remove(primary.System);
            OnError(header, primary);
        }

        private void TakeAbort(Header header)
        {
            Open aborted;
            if (!open.TryGetValue(header.System, out aborted))
            {
                OnStrayReply(header);
                return;
            }
            open.Remove(header.System);
            OnAborted(aborted.Primary);
        }

        private sealed class Open
        {
            public Header Primary { get; set; }

            public TimeSpan Since { get; set; }
        }
    }
}
