using System;
using Zelto;

/// <summary>A plug-in at work: it prints what passes, over a loopback in place of a link.</summary>
public sealed class Example : ${package}.PlugIn
{
    private Example(Transport transport) : base(transport)
    {
    }

    public static void Main()
    {
        var loopback = new Loopback();
        loopback.Sent += (toHost, header, body) =>
            Console.WriteLine("{0} {1}, {2} bytes", toHost ? "H<-E" : "H->E", header, body.Length);
        var plugIn = new Example(loopback.${sideEnd});
//% each sentTypes
//% if isPrimary
        plugIn.Send${type}();
//% end
//% end
//% each examples
        loopback.${otherEnd}.Send(
            new Header(0, ${stream}, ${function}, ${wait}, ${number}), new ${package}.Messages.${type}().Encode());
//% end
        loopback.Deliver();
        Console.WriteLine("{0} replies are open", plugIn.OpenTransactions);
    }

    protected override void OnReceived(Report report)
    {
        Console.WriteLine("{0} ({1})", report.Transaction, report.Message);
        foreach (TransactionItem item in report.Items)
            Console.WriteLine("    {0} = {1}", item.Name, item.IsMissing ? "(missing)" : item.Text);
    }

    protected override void OnDeviation(Deviation deviation)
    {
        Console.WriteLine("    {0} {1}", deviation.Transaction,
            deviation.Restarts ? "begins its sequence again" : "is out of sequence");
    }

    protected override void OnUnknown(Header header, byte[] body, Finding finding)
    {
        Console.WriteLine("S{0}F{1} is no transaction", header.Stream, header.Function);
    }
}
