"""The replaying program in C#."""
import re

TOOL = """
    private sealed class Tool{number} : {package}.PlugIn, ITool
    {{
        public Tool{number}(Transport transport) : base(transport)
        {{
            DeviceId = 1;
        }}

        public string Line {{ get; set; }}

        protected override void OnReceived(Report report)
        {{
            Line = LineOf(report);
        }}

        protected override void OnUnknown(Header header, byte[] body, Finding finding)
        {{
            Line = finding == Finding.NoTransaction ? "no transaction" : "no message";
        }}
{handlers}    }}
"""
HANDLER = """
        protected override void {handler}({package}.Transactions.{type} received)
        {{
            Line += "\\tbytes=" + HexOf(received.Message.Encode());
        }}
"""
PROGRAM = """using System;
using System.Collections.Generic;
using System.IO;
using System.Linq;
using System.Text;
using Zelto;

public static class Replay
{{
    private interface ITool
    {{
        string Line {{ get; set; }}
    }}

    private static readonly List<Action<Header, byte[]>> Senders = new List<Action<Header, byte[]>>();
    private static readonly List<ITool> Tools = new List<ITool>();

    public static void Main()
    {{
{objects}
        var output = new StreamWriter(Console.OpenStandardOutput(), new UTF8Encoding(false));
        for (string words = Console.ReadLine(); words != null; words = Console.ReadLine())
        {{
            int number = int.Parse(words.Split(' ')[0]);
            byte[] bytes = BytesOf(words.Split(' ')[1]);
            Tools[number].Line = "";
            Senders[number](Header.FromBytes(bytes), bytes.Skip(10).ToArray());
            output.Write(Tools[number].Line + "\\n");
        }}
        output.Flush();
    }}

    private static void Add(bool isHost, Func<Transport, ITool> create)
    {{
        var loopback = new Loopback();
        Tools.Add(create(isHost ? loopback.Host : loopback.Equipment));
        Transport other = isHost ? loopback.Equipment : loopback.Host;
        Senders.Add((header, body) =>
        {{
            other.Send(header, body);
            loopback.Deliver();
        }});
    }}

    private static byte[] BytesOf(string hex)
    {{
        return Enumerable.Range(0, hex.Length / 2).Select(at => Convert.ToByte(hex.Substring(2 * at, 2), 16)).ToArray();
    }}

    private static string HexOf(IEnumerable<byte> bytes)
    {{
        return string.Concat(bytes.Select(each => each.ToString("X2")));
    }}

    private static string LineOf(Report report)
    {{
        return report.Message + "\\t" + report.Transaction + string.Concat(report.Items.Select(item =>
            "\\t" + item.Name + "=" + (item.IsMissing ? "(missing)" : ":" + HexOf(item.Text.Select(each => (byte)each)))));
    }}
{tools}}}
"""


def package(folder):
    return re.search(r"^namespace (\w+)", (folder / "PlugIn.cs").read_text(), re.M)[1]


def handlers(folder):
    return re.findall(r"protected virtual void (On(\w+))\(Transactions", (folder / "PlugIn.cs").read_text())


def source(projects):
    """The text of the program for projects (folder, side)."""
    tools = objects = ""
    for number, (folder, side) in enumerate(projects):
        name = package(folder)
        own = "".join(HANDLER.format(handler=handler, package=name, type=kind) for handler, kind in handlers(folder))
        tools += TOOL.format(number=number, package=name, handlers=own)
        objects += f"        Add({str(side == 'Host').lower()}, transport => new Tool{number}(transport));\n"
    return PROGRAM.format(tools=tools, objects=objects)


def build(work, projects, run, compiler):
    (work / "Replay.cs").write_text(source(projects))
    files = [work / "Replay.cs", *projects[0][0].glob("Zelto/*.cs")]
    for folder, _ in projects:
        files += [folder / "PlugIn.cs", *folder.glob("Messages/*.cs"), *folder.glob("Transactions/*.cs")]
    (work / "files").write_text("".join(f"{file}\n" for file in files))
    run([compiler, "-warnaserror", "-r:System.Numerics", "-out:Replay.exe", "@files"], work)
    return ["mono", "Replay.exe"]
