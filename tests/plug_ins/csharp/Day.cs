using System;
using System.Collections.Generic;
using System.Linq;
using Zelto;

/// <summary>A day of the etcher and its host, over a loopback. Every transaction, item and answer is compared.</summary>
public static class Day
{
    private static readonly List<string> Diary = new List<string>();
    private static readonly Loopback Line = new Loopback();
    private static readonly Tool Equipment = new Tool(Line.Equipment);
    private static readonly HostSide Host = new HostSide(Line.Host);
    private static int faults;

    public static int Main()
    {
        StartUp();
        ProcessLot();
        Conditions();
        OutOfOrder();
        OddMessages();
        MissingReplies();
        Console.WriteLine("{0} faults", faults);
        return faults == 0 ? 0 : 1;
    }

    private static void Expect(string what, object found, object wanted)
    {
        if (Equals(found, wanted))
            return;
        ++faults;
        Console.WriteLine("{0} is {1}, not {2}", what, found, wanted);
    }

    private static void ExpectLines(string what, params string[] wanted)
    {
        Expect(what, string.Join("\n", Diary), string.Join("\n", wanted));
        Diary.Clear();
    }

    private static void Note(string side, Report report)
    {
        Diary.Add(side + " " + report.Transaction
            + string.Concat(report.Items.Select(item => " " + item.Name + "=" + (item.IsMissing ? "?" : item.Text))));
    }

    private static string NameOf(Header header)
    {
        return "S" + header.Stream + "F" + header.Function;
    }

    private static void StartUp()
    {
        Equipment.SendOpenLink();
        Line.Deliver();
        Host.SendGoOnLine();
        Line.Deliver();
        ExpectLines("the start", "host OpenLink", "tool LinkAccepted", "tool GoOnLine", "host OnLineAccepted");
    }

    private static void ProcessLot()
    {
        Host.SendSelectLot();
        Line.Deliver();
        Host.SendStartLot();
        Line.Deliver();
        Equipment.SendStepDone();
        Line.Deliver();
        Equipment.SendLotDone();
        Line.Deliver();
        ExpectLines("the lot",
            "tool SelectLot PORT=1 LOT=L260321A07       RECIPE=OXIDE_MAIN_ETCH_A12", "host CommandDone", "tool StartLot",
            "host CommandDone", "host StepDone", "tool EventTaken", "host LotDone", "tool EventTaken");
        Expect("the sequences under way", Equipment.Sequences.UnderWay.Count, 0);
        Expect("the replies that are open", Equipment.OpenTransactions + Host.OpenTransactions, 0);
    }

    private static void Conditions()
    {
        var own = new Etcher.Messages.SelectRecipe();
        Expect("a message", Etcher.Messages.SelectRecipe.Decode(own.Encode()).ToSml(), own.ToSml());
        EtcherHost.Messages.SelectRecipe lot = EtcherHost.Transactions.SelectLot.Message();
        lot.Cpval3 = 3;
        Host.SendSelectLotElsewhere(lot);
        EtcherHost.Messages.NewEquipmentConstantSend constants = EtcherHost.Transactions.LimitPressure.Message();
        constants.Eccount.Clear();
        Lists.Add(constants.Eccount, new EtcherHost.Messages.NewEquipmentConstantSend.EccountEntry()).Ecid = 2002;
        Lists.Add(constants.Eccount, new EtcherHost.Messages.NewEquipmentConstantSend.EccountEntry()).Ecid = 2004;
        Host.SendLimitPressure(constants);
        constants.Eccount[1].Ecid = 2005;
        Host.SendSetConstants(constants);
        Line.Deliver();
        ExpectLines("conditions", "tool SelectLotElsewhere PORT=3", "tool LimitPressure LIMIT=2",
            "tool SetConstants GROUP=Temperature", "host CommandDone");
    }

    /// <summary>A lot that is done without a step: the sequence goes on after it.</summary>
    private static void OutOfOrder()
    {
        Host.SendSelectLot();
        Line.Deliver();
        Equipment.SendLotDone();
        Line.Deliver();
        ExpectLines("out of order",
            "tool SelectLot PORT=1 LOT=L260321A07       RECIPE=OXIDE_MAIN_ETCH_A12", "host CommandDone",
            "tool deviates LotDone", "host deviates LotDone", "host LotDone", "tool EventTaken");
        Expect("the sequences under way", Equipment.Sequences.UnderWay.Count, 0);
    }

    private static void OddMessages()
    {
        var none = new byte[0];
        Line.Host.Send(new Header(0, 64, 1, true, 900), none);
        Line.Host.Send(new Header(0, 1, 77, true, 901), none);
        Line.Host.Send(new Header(0, 1, 17, true, 902), new byte[] { 0x21, 1, 0 });
        Line.Host.Send(new Header(7, 1, 17, true, 903), none);
        Line.Host.Send(new Header(0, 1, 18, false, 904), none);
        Line.Deliver();
        ExpectLines("odd messages", "tool unknown S64F1 2", "tool unknown S1F77 3", "tool unknown S1F17 4",
            "tool unknown S1F17 2", "tool stray S1F18", "tool unknown S1F18 3", "host error S9F3 S64F1",
            "host error S9F5 S1F77", "host error S9F7 S1F17", "host error S9F1 S1F17", "host error S9F5 S1F18");
        Action<bool, Header, byte[]> note = (toHost, header, body) => Diary.Add((toHost ? ">" : "<") + NameOf(header));
        Line.Sent += note;
        Line.Host.Send(new Header(0, 1, 1, true, 950), none);
        Line.Deliver();
        Line.Sent -= note;
        Expect("the automatic reply", string.Join(" ", Diary.Take(2)), "<S1F1 >S1F2");
        Diary.Clear();
    }

    private static void MissingReplies()
    {
        var loopback = new Loopback(); // nobody is at the other end
        var tool = new Tool(loopback.Equipment);
        uint system = tool.SendRfAlarm();
        tool.CheckTimeouts();
        Expect("the open reply", tool.OpenTransactions, 1);
        loopback.Host.Send(new Header(0, 5, 0, false, system), new byte[0]);
        loopback.Deliver();
        tool.SendRfAlarm();
        tool.CheckTimeouts(Link.Now + TimeSpan.FromMinutes(1));
        Expect("the replies that are still open", tool.OpenTransactions, 0);
        ExpectLines("missing replies", "tool aborted S5F1", "tool deviates RfAlarm", "tool timeout S5F1");
    }

    private sealed class Tool : Etcher.PlugIn
    {
        public Tool(Transport transport) : base(transport)
        {
        }

        protected override void OnReceived(Report report)
        {
            Note("tool", report);
        }

        protected override void OnDeviation(Deviation deviation)
        {
            Diary.Add("tool deviates " + deviation.Transaction);
        }

        protected override void OnUnknown(Header header, byte[] body, Finding finding)
        {
            Diary.Add("tool unknown " + NameOf(header) + " " + (int)finding);
        }

        protected override void OnTimeout(Header primary)
        {
            Diary.Add("tool timeout " + NameOf(primary));
        }

        protected override void OnAborted(Header primary)
        {
            Diary.Add("tool aborted " + NameOf(primary));
        }

        protected override void OnStrayReply(Header header)
        {
            Diary.Add("tool stray " + NameOf(header));
        }

        protected override void OnGoOnLine(Etcher.Transactions.GoOnLine received)
        {
            SendOnLineAccepted(received.Header);
        }

        protected override void OnSelectLot(Etcher.Transactions.SelectLot received)
        {
            Expect("the port", received.Port.Number, (double?)1);
            Expect("the lot", received.Lot.Text, "L260321A07      ");
            SendCommandDone(received.Header);
        }

        protected override void OnSelectLotElsewhere(Etcher.Transactions.SelectLotElsewhere received)
        {
            SendPortRefused(received.Header);
        }

        protected override void OnStartLot(Etcher.Transactions.StartLot received)
        {
            SendCommandDone(received.Header);
        }
    }

    private sealed class HostSide : EtcherHost.PlugIn
    {
        public HostSide(Transport transport) : base(transport)
        {
        }

        protected override void OnReceived(Report report)
        {
            Note("host", report);
        }

        protected override void OnDeviation(Deviation deviation)
        {
            Diary.Add("host deviates " + deviation.Transaction);
        }

        protected override void OnError(Header error, Header primary)
        {
            Diary.Add("host error " + NameOf(error) + " " + (primary == null ? "?" : NameOf(primary)));
        }

        protected override void OnOpenLink(EtcherHost.Transactions.OpenLink received)
        {
            Expect("the model", received.Message.Mdln, "ZE3000");
            SendLinkAccepted(received.Header);
        }

        protected override void OnStepDone(EtcherHost.Transactions.StepDone received)
        {
            SendEventTaken(received.Header);
        }

        protected override void OnLotDone(EtcherHost.Transactions.LotDone received)
        {
            Expect("the wafers", received.Message.Wafercount.Count, 2);
            Expect("a depth", received.Message.Wafercount[0].Stepcount[1].Etchdepth, 118.9F);
            SendEventTaken(received.Header);
        }
    }
}
