using Zelto;

namespace ${package}
{
    /// <summary>
    /// The ${sideWord} side of ${project}. Derive from it and override the handlers of what you want to know.
    /// </summary>
    public class PlugIn : Link
    {
        private static readonly Sequence[] AllSequences =
        {
//% each sequences
//% if steps
            new Sequence(
                ${nameLiteral},
//% each steps
//% if more
                ${step},
//% else
                ${step}),
//% end
//% end
//% else
            new Sequence(${nameLiteral}),
//% end
//% end
        };

        public PlugIn(Transport transport) : base(transport, Side.${side}, AllSequences)
        {
        }
//% each sentTypes

//% if isPrimary
        /// <summary>${head}. Returns the system bytes, which the reply has as well.</summary>
        public uint Send${type}(Messages.${message} message)
        {
            return SendPrimary(Messages.${message}.Head, message.Encode(), Transactions.${type}.Name);
        }

        public uint Send${type}()
        {
            return Send${type}(Transactions.${type}.Message());
        }
//% else
        /// <summary>${head}, the reply to a primary message.</summary>
        public void Send${type}(Header primary, Messages.${message} message)
        {
            SendReply(primary, Messages.${message}.Head, message.Encode(), Transactions.${type}.Name);
        }

        public void Send${type}(Header primary)
        {
            Send${type}(primary, Transactions.${type}.Message());
        }
//% end
//% end
//% each receivedTypes

        /// <summary>${head}</summary>
        protected virtual void On${type}(Transactions.${type} received)
        {
        }
//% end

        protected override Finding Dispatch(Header header, byte[] body)
        {
            switch (header.Stream)
            {
//% each streams
                case ${stream}:
                    return DispatchStream${stream}(header, body);
//% end
                default:
                    return Finding.UnknownStream;
            }
        }

        protected override bool Answer(Header primary, string message)
        {
            switch (message)
            {
//% each answers
                case ${nameLiteral}:
                    SendReply(primary, Messages.${reply}.Head, new Messages.${reply}().Encode(), null);
                    return true;
//% end
                default:
                    return false;
            }
        }
//% each streams

        private Finding DispatchStream${stream}(Header header, byte[] body)
        {
            Finding finding = Finding.UnknownFunction;
            switch (header.Function)
            {
//% each functions
                case ${function}:
//% each candidates
//% if isFirst
                    finding = Take${message}(header, body);
//% else
                    if (finding == Finding.IllegalData)
                        finding = Take${message}(header, body);
//% end
//% end
                    break;
//% end
            }
            return finding;
        }
//% end
//% each chains

        private Finding Take${message}(Header header, byte[] body)
        {
            Messages.${message} message = Messages.${message}.Decode(body);
            if (message == null)
                return Finding.IllegalData;
//% if isAnswered
            SetAnswerable(${nameLiteral});
//% end
//% each chain
//% if hasCondition
            if (Transactions.${type}.Applies(message))
                return Take(new Transactions.${type}(header, message));
//% else
            return Take(new Transactions.${type}(header, message));
//% end
//% end
//% if isOpen
            return Finding.NoTransaction;
//% end
        }
//% end
//% each receivedTypes

        private Finding Take(Transactions.${type} received)
        {
            Track(Transactions.${type}.Name);
            OnReceived(new Report(
                received.Header, Messages.${message}.Head.Name, Transactions.${type}.Name, received.Items,
                Transactions.${type}.IsReported));
            On${type}(received);
            return Finding.Taken;
        }
//% end
    }
}
