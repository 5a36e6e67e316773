"""The replaying program in Java."""
import re

TOOL = """
    private static final class Tool{number} extends {package}.PlugIn implements Tool {{
        private String line = "";

        Tool{number}(Transport transport) {{
            super(transport);
        }}

        @Override
        public String takeLine() {{
            String taken = line;
            line = "";
            return taken;
        }}

        @Override
        protected void onReceived(Report report) {{
            line = lineOf(report);
        }}

        @Override
        protected void onUnknown(Header header, byte[] body, Finding finding) {{
            line = finding == Finding.NO_TRANSACTION ? "no transaction" : "no message";
        }}
{handlers}    }}
"""
HANDLER = """
        @Override
        protected void {handler}({package}.transactions.{type} received) {{
            line += "\\tbytes=" + hexOf(received.message.encode());
        }}
"""
PROGRAM = """import java.io.BufferedReader;
import java.io.InputStreamReader;
import java.io.PrintStream;
import java.nio.charset.StandardCharsets;
import java.util.ArrayList;
import java.util.Arrays;
import java.util.HexFormat;
import java.util.List;
import zelto.*;

public final class Replay {{
    private interface Tool {{
        String takeLine();
    }}

    private static final List<Loopback> LOOPBACKS = new ArrayList<>();
    private static final List<Transport> SENDERS = new ArrayList<>();
    private static final List<Tool> TOOLS = new ArrayList<>();

    private Replay() {{
    }}

    private static String hexOf(byte[] bytes) {{
        return HexFormat.of().withUpperCase().formatHex(bytes);
    }}

    private static String lineOf(Report report) {{
        StringBuilder line = new StringBuilder(report.message() + "\\t" + report.transaction());
        for (TransactionItem item : report.items()) {{
            line.append('\\t').append(item.name()).append('=').append(
                item.isMissing() ? "(missing)" : ":" + hexOf(item.text().getBytes(StandardCharsets.ISO_8859_1)));
        }}
        return line.toString();
    }}
{tools}
    private static Loopback add(boolean isHost) {{
        Loopback loopback = new Loopback();
        LOOPBACKS.add(loopback);
        SENDERS.add(isHost ? loopback.equipment() : loopback.host());
        return loopback;
    }}

{adders}
    public static void main(String[] arguments) throws Exception {{
{objects}
        PrintStream out = new PrintStream(System.out, false, StandardCharsets.UTF_8);
        BufferedReader in = new BufferedReader(new InputStreamReader(System.in, StandardCharsets.UTF_8));
        for (String words = in.readLine(); words != null; words = in.readLine()) {{
            int number = Integer.parseInt(words.split(" ")[0]);
            byte[] bytes = HexFormat.of().parseHex(words.split(" ")[1]);
            TOOLS.get(number).takeLine();
            SENDERS.get(number).send(Header.fromBytes(bytes).get(), Arrays.copyOfRange(bytes, 10, bytes.length));
            LOOPBACKS.get(number).deliver();
            out.print(TOOLS.get(number).takeLine() + "\\n");
        }}
        out.flush();
    }}
}}
"""
ADDER = """    private static void add{number}() {{
        Tool{number} tool = new Tool{number}(add({isHost}).{end}());
        tool.setDeviceId(1);
        TOOLS.add(tool);
    }}
"""


def package(folder):
    return next(folder.glob("*/PlugIn.java")).parent.name


def handlers(folder):
    text = next(folder.glob("*/PlugIn.java")).read_text()
    return re.findall(r"protected void (on(\w+))\([\w.]+ received\)", text)


def source(projects):
    """The text of the program for projects (folder, side)."""
    tools = adders = objects = ""
    for number, (folder, side) in enumerate(projects):
        name = package(folder)
        own = "".join(HANDLER.format(handler=handler, package=name, type=kind) for handler, kind in handlers(folder))
        tools += TOOL.format(number=number, package=name, handlers=own)
        adders += ADDER.format(number=number, isHost=str(side == "Host").lower(), end=side.lower())
        objects += f"        add{number}();\n"
    return PROGRAM.format(tools=tools, adders=adders, objects=objects)


def build(work, projects, run, compiler):
    (work / "Replay.java").write_text(source(projects))
    files = [work / "Replay.java", *projects[0][0].glob("zelto/*.java")]
    for folder, _ in projects:
        files += (folder / package(folder)).rglob("*.java")
    (work / "files").write_text("".join(f"{file}\n" for file in files))
    # The compiler of one batch is not worth an optimizer.
    run([compiler, "-J-XX:TieredStopAtLevel=1", "-Xlint", "-Werror", "-encoding", "UTF-8", "-d", "classes", "@files"], work)
    return ["java", "-XX:TieredStopAtLevel=1", "-cp", "classes", "Replay"]
