using System;
using System.Linq;
using Zelto;

/// <summary>Checks the generated code itself: every message is what its bytes say.</summary>
public static class SelfTest
{
    private static int faults;

    public static int Main()
    {
//% each types
//% if isDecodable
        Check(new ${package}.Messages.${type}(), ${package}.Messages.${type}.Decode, ${nameLiteral});
//% end
//% end
//% each sentTypes
//% if isDecodable
        Check(${package}.Transactions.${type}.Message(), ${package}.Messages.${message}.Decode,
            ${package}.Transactions.${type}.Name);
//% end
//% end
        CheckStray();
        Console.WriteLine("{0} faults", faults);
        return faults == 0 ? 0 : 1;
    }

    private static void CheckStray()
    {
        var loopback = new Loopback();
        var plugIn = new ${package}.PlugIn(loopback.${sideEnd});
        // A message of a stream that nobody defines, for which an equipment has an answer.
        loopback.${otherEnd}.Send(new Header(0, 127, 1, false, 1), new byte[0]);
        Expect(loopback.Deliver() == 1 + ${strayAnswers}, "stream 127", "the answer is not the one of this side");
        Expect(plugIn.OpenTransactions == 0, "stream 127", "a reply is open");
    }

    private static void Expect(bool isTrue, string message, string what)
    {
        if (isTrue)
            return;
        ++faults;
        Console.WriteLine("{0}: {1}", message, what);
    }

    private static void Check(Message message, Func<byte[], Message> decode, string name)
    {
        byte[] bytes = message.Encode();
        Message decoded = decode(bytes);
        Expect(decoded != null, name, "its own bytes are refused");
        Expect(decoded == null || decoded.Encode().SequenceEqual(bytes), name, "its bytes change");
        Expect(decoded == null || decoded.ToSml() == message.ToSml(), name, "its items change");
        Expect(decode(bytes.Concat(new byte[1]).ToArray()) == null, name, "a byte too many is taken");
        Expect(bytes.Length == 0 || decode(bytes.Take(bytes.Length - 1).ToArray()) == null, name,
            "a missing byte is taken");
        Expect((message.ToSml().Length == 0) == (bytes.Length == 0), name, "its items are not written");
    }
}
